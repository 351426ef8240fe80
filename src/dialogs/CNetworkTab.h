#ifndef TORNIK_DIALOGS_CNETWORKTAB_H
#define TORNIK_DIALOGS_CNETWORKTAB_H

#include <QWidget>

class CFlagBox;
class CSettings;
class QLabel;
class QLineEdit;
class QTimeEdit;

/** How a second computer shows the race. A tab of the settings dialog, which says when a rule applies. */
class CNetworkTab : public QWidget
{
    Q_OBJECT

public:
    explicit CNetworkTab(QWidget* parent = nullptr);

    void showSettings(const CSettings& settings);
    /** An empty port counts as 0. */
    void storeSettings(CSettings& settings) const;

    bool sendsShutdown() const;
    void enableWaitTime(bool on);

Q_SIGNALS:
    void sendShutdownChanged();

private:
    void createControls();
    void createLayout();

    QLineEdit* m_port = nullptr;
    CFlagBox* m_sendShutdown = nullptr;
    QLabel* m_waitTimeCaption = nullptr;
    QTimeEdit* m_waitTime = nullptr;
    CFlagBox* m_muted = nullptr;
};

#endif
