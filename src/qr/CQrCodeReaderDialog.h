#ifndef TORNIK_QR_CQRCODEREADERDIALOG_H
#define TORNIK_QR_CQRCODEREADERDIALOG_H

#include <QDialog>

#include <memory>
#include <vector>

class CSettings;
class QCamera;
class QCameraInfo;
class QCameraViewfinder;
class QGridLayout;
class QRCodeReader;
class QThread;

/**
 * The window with the picture of the camera, open until a code is read in it.
 *
 * Made once by the main dialog and kept; main thread only. The pictures are decoded on a thread of
 * its own, and the main thread never waits for it but in the destructor.
 */
class CQrCodeReaderDialog : public QDialog
{
    Q_OBJECT

public:
    /** @param settings tells which camera; not owned */
    explicit CQrCodeReaderDialog(const CSettings* settings);
    ~CQrCodeReaderDialog() override;

    /** To be called whenever the settings have changed. @param settings not owned */
    void setSettings(const CSettings* settings);

    /**
     * Runs the dialog, or a message box where there is no camera to read from.
     * @return the text of a code, whatever it says; empty if the user closed the window
     */
    virtual QString readCode();

Q_SIGNALS:
    void startDetection(QCamera* camera);

private Q_SLOTS:
    void publishResult(const QString& resultString);
    void applyCameraFromSettings();

private:
    void createReader();
    void lookForCamera();
    /** @return null if the settings name none, or one that isn't there. */
    QCameraInfo configuredCamera() const;
    void useCamera(const QCameraInfo& camera);
    void dropCamera();
    void captureEnded();
    void threadEnded();
    static void tellProblem(const QString& text);

    const CSettings* m_settings; ///< not owned
    QCameraViewfinder* m_viewfinder;
    std::unique_ptr<QCamera> m_camera; ///< null when the configured camera doesn't exist
    QGridLayout* m_layout;
    QRCodeReader* m_reader;                               ///< owned; lives on m_readerThread
    QThread* m_readerThread;                              ///< owned
    QString m_result;                                     ///< the text of the last reading; null if none
    int m_captures = 0;                                   ///< that the reader has not told the end of
    std::vector<std::unique_ptr<QCamera>> m_camerasInUse; ///< dropped, and held until the reader lets go
};

#endif
