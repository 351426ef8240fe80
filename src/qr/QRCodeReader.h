#ifndef TORNIK_QR_QRCODEREADER_H
#define TORNIK_QR_QRCODEREADER_H

#include "qr/QZXing.h"

#include <QElapsedTimer>
#include <QObject>

#include <atomic>
#include <memory>

class QCamera;
class QCameraImageCapture;

/**
 * Takes pictures from a camera as fast as they come and looks for a code in them.
 *
 * Lives on a thread of its own, which a capture keeps busy until it ends: with the first new text,
 * or when it is stopped. Owned by the dialog, which must let the camera live until finished() came
 * once for each captureQrCode(). A capture also ends when its thread is asked for an interruption.
 */
class QRCodeReader : public QObject
{
    Q_OBJECT

public:
    explicit QRCodeReader(QObject* parent = nullptr);
    ~QRCodeReader() override;

Q_SIGNALS:
    /** @param text what a code holds, never empty */
    void resultAvailable(QString text);
    void finished();

public Q_SLOTS:
    /** Returns when the capture has ended. A camera that comes during a capture takes its place. */
    void captureQrCode(QCamera* camera);
    /** Ends the capture after its present picture; may be called from any thread. */
    void stop();

private Q_SLOTS:
    void processImage(int id, const QImage& imageToDecode);

private:
    void beginCapture(QCamera* camera);
    void endCapture();
    bool isPictureOnItsWay() const;
    void askForPicture();
    bool isToGoOn() const;
    void dropNextCamera();

    std::atomic<bool> m_stopRequested{true};
    QZXing m_decoder;
    std::unique_ptr<QCameraImageCapture> m_imageCapture; ///< null outside a capture
    QElapsedTimer m_sinceAsked;                          ///< invalid when no picture is on its way
    QString m_lastResult;                                ///< the last text told of
    QCamera* m_nextCamera = nullptr;                     ///< not owned; the one that is to follow
};

#endif
