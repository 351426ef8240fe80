#ifndef TORNIK_DIALOGS_CQRCODETAB_H
#define TORNIK_DIALOGS_CQRCODETAB_H

#include <QStringList>
#include <QWidget>

class CFlagBox;
class CSettings;
class QComboBox;
class QLabel;

/** Which camera reads codes. A tab of the settings dialog, which says when a rule applies. */
class CQrCodeTab : public QWidget
{
    Q_OBJECT

public:
    explicit CQrCodeTab(QWidget* parent = nullptr);

    /** @param cameras the names to choose from */
    void showSettings(const CSettings& settings, const QStringList& cameras);
    /** Without a camera to choose from its name becomes empty. */
    void storeSettings(CSettings& settings) const;

    bool isHandlingEnabled() const;
    void enableCamera(bool on);

Q_SIGNALS:
    void handlingChanged();

private:
    CFlagBox* m_enabled;
    QLabel* m_cameraCaption;
    QComboBox* m_camera;
};

#endif
