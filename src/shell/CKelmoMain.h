#ifndef TORNIK_SHELL_CKELMOMAIN_H
#define TORNIK_SHELL_CKELMOMAIN_H

#include <QObject>
#include <QTimer>

#include <memory>

class CCommandLineParameters;
class CKelmoMainDialog;
class CKelmoNetworkClient;
class CKelmoNetworkServer;
class CRace;
class CRaceSettings;
class CRaceSummaryDialog;
class CSettings;
class QAbstractButton;
class QMessageBox;

/**
 * The start object: makes and owns every part of the program, connects them and settles the mode,
 * race master or display client, for the whole run. Lives on the stack of the entry function.
 */
class CKelmoMain : public QObject
{
    Q_OBJECT

public:
    /** Shows the window; with a quick race asked for, the race is running on return. */
    CKelmoMain(QObject* parent, const CCommandLineParameters& parameters);
    /** Stops the race and takes everything apart in a fixed order. */
    ~CKelmoMain() override;

    CKelmoMainDialog* mainDialog() const { return m_mainDialog.get(); }
    CRace* race() const { return m_race.get(); }
    /** @return null in a display client. */
    CKelmoNetworkServer* server() const { return m_server.get(); }
    /** @return null in a race computer. */
    CKelmoNetworkClient* client() const { return m_client.get(); }

Q_SIGNALS:
    /** Never emitted. */
    void quitApplication();

private Q_SLOTS:
    /** Shows a message of the network like one of the race. */
    void debugMessage(const QString& text);
    /**
     * Counts down in a box and powers this machine off; a count that runs already goes on with the
     * new time.
     * @param seconds to wait; the machine goes down a second after the box shows 0
     */
    void shutDownTriggerReceived(int seconds);
    void shutDownTimerTick();
    /** @param button the one of the box that was pressed */
    void cancelShutdown(QAbstractButton* button);

private:
    void createParts();
    void createServer(quint16 port);
    void connectRaceToDialog();
    void connectRaceToServer();
    void connectDialogToRace();
    void connectSummaryToDialog();
    void connectDialogAndServer();
    void deleteServer();
    void deleteClient();
    void connectClient(const QString& address);
    void connectClientToDialog();
    void createShutdownBox();
    void connectShutdown();
    void showSecondsToShutdown(int seconds);
    void stopShutdown();
    void showWindow(bool windowed);

    std::unique_ptr<CKelmoMainDialog> m_mainDialog;
    std::unique_ptr<CSettings> m_settings;
    std::unique_ptr<CRaceSettings> m_raceSettings;
    std::unique_ptr<CRace> m_race;
    CRaceSummaryDialog* m_summaryDialog = nullptr; ///< child of the main dialog
    std::unique_ptr<CKelmoNetworkServer> m_server; ///< null in a display client
    std::unique_ptr<CKelmoNetworkClient> m_client; ///< null in a race computer
    std::unique_ptr<QMessageBox> m_shutdownBox;    ///< has no parent: the main window stays usable
    QTimer* m_shutdownTimer;
    int m_shutdownSeconds = 0; ///< the wait that the server told
    int m_shutdownElapsed = 0; ///< seconds of it that are over
};

#endif
