#ifndef TORNIK_SHELL_CCOMMANDLINEPARAMETERS_H
#define TORNIK_SHELL_CCOMMANDLINEPARAMETERS_H

#include <QString>

/** The options of the command line; a value, read once at start from QCoreApplication::arguments(). */
class CCommandLineParameters
{
public:
    /** Parses the arguments; `--help` and an unknown option end the process here. */
    CCommandLineParameters();

    /** @return whether a quick race starts at once; never in client mode. */
    bool quickRace() const { return m_quickRace; }
    /** @return whether the program is only a display of another machine's race. */
    bool clientMode() const { return m_clientMode; }
    /** @return host name or address of the server in client mode, with ":port" if the user gave one. */
    const QString& serverAddress() const { return m_serverAddress; }
    bool windowed() const { return m_windowed; }
    /** @return the port to listen on; 0 for the port of the settings. */
    quint16 port() const { return m_port; }
    /** @return a locale such as "en"; empty for the system's. */
    const QString& language() const { return m_language; }

private:
    bool m_quickRace = false;
    bool m_clientMode = false;
    QString m_serverAddress;
    bool m_windowed = false;
    quint16 m_port = 0;
    QString m_language;
};

#endif
