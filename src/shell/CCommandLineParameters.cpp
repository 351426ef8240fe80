#include "shell/CCommandLineParameters.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace {

QString text(const char* source)
{
    return QCoreApplication::translate("main", source);
}

QList<QCommandLineOption> options()
{
    return {
        {"quickRace",
         text(QT_TRANSLATE_NOOP("main", "startet direkt ein schnelles Rennen mit Default Einstellungen"))},
        {"windowed",
         text(QT_TRANSLATE_NOOP("main", "startet das Programm als Fenster anstelle von Vollbild Modus."))},
        {"connect",
         text(QT_TRANSLATE_NOOP(
             "main", "Startet als Anzeige für Daten von <server_adresse>. <server_adresse> muß die "
                     "ip-Adresse oder der Hostname sein auf dem der Tornik ausgeführt wird. Alternativ "
                     "kann auch <server_adresse>:<server_port> verwendet werden um auch den Port gezielt "
                     "auswählen zu können.")),
         "server_adresse"},
        {"port",
         text(QT_TRANSLATE_NOOP(
             "main", "Wartet auf <server_port> auf Verbindungen von zusätzlichen Anzeige Clients.")),
         "server_port"},
        {"language",
         text(QT_TRANSLATE_NOOP("main", "Setzt die Sprache der Anwendung auf <locale> (zur Zeit werden nur "
                                        "\"de\" für deutsch und \"en\" für englisch unterstützt)")),
         "locale"},
    };
}

} // namespace

CCommandLineParameters::CCommandLineParameters()
{
    QCommandLineParser parser;
    parser.setApplicationDescription("Tornik");
    parser.addHelpOption();
    parser.addOptions(options());
    parser.process(QCoreApplication::arguments());

    m_clientMode = parser.isSet("connect");
    m_quickRace = parser.isSet("quickRace") && !m_clientMode;
    m_serverAddress = parser.value("connect");
    m_windowed = parser.isSet("windowed");
    m_port = parser.value("port").toUShort(nullptr, 10);
    m_language = parser.value("language");
}
