#ifndef TORNIK_TESTS_DIALOGS_SETTINGSTABLE_H
#define TORNIK_TESTS_DIALOGS_SETTINGSTABLE_H

#include "dialogs/ControlTable.h"
#include "dialogs/StoredSettings.h"

/** Every control of the settings: its text, range, first value, rule and field. */
namespace SettingsTable {

using S = CSettings;
using Table = ControlTable<CSettings>;
using StoredSettings::Change;
using StoredSettings::to;

inline QStringList cameras()
{
    return {"Kamera am Deckel", "Kamera am Kabel"};
}

inline void addLists(Table& table)
{
    table.place("Rennstrecken");
    table.tree("racewayTree", "Vorhandene Strecken:");
    table.push("newRaceway", "&Neu");
    table.push("editRaceway", "&Bearbeiten");
    table.push("deleteRaceway", "&Löschen");
    table.push("useRaceway", "Ben&utzen");
    table.place("Fahrzeuge");
    table.tree("carTree", "Vorhandene Fahrzeuge:");
    table.push("newCar", "&Neu");
    table.push("editCar", "&Bearbeiten");
    table.push("deleteCar", "&Löschen");
    table.push("importCars", "&Importieren");
    table.push("exportCars", "&Exportieren");
    table.push("qrCodeCar", "QR &Code");
    table.push("qrCodesCars", "&QR Code Liste");
    table.place("Fahrer");
    table.tree("driverTree", "Vorhandene Fahrer:");
    table.push("newDriver", "&Neu");
    table.push("editDriver", "&Bearbeiten");
    table.push("deleteDriver", "&Löschen");
    table.push("importDrivers", "&Importieren");
    table.push("exportDrivers", "&Exportieren");
    table.push("qrCodeDriver", "QR &Code");
    table.push("qrCodesDrivers", "&QR Code Liste");
}

inline void addDisplayFlags(Table& table)
{
    table.place("Anzeige");
    table.check("displayShowLaps", "Rundenanzahl anzeigen")
        .shows(true)
        .takes(false, to(&S::setDisplayShowLaps, false));
    table.check("displayShowLapTime", "Rundenzeit anzeigen")
        .shows(true)
        .takes(false, to(&S::setDisplayShowLapTime, false));
    table.check("displayShowBestLapTime", "Beste Rundenzeit anzeigen")
        .shows(true)
        .takes(false, to(&S::setDisplayShowBestLapTime, false));
    table.check("displayShowStatus", "Rennstatus")
        .shows(true)
        .takes(false, to(&S::setDisplayShowStatus, false));
    table.check("displayShowAverageLapTime", "Durchschnittliche Rundenzeit anzeigen")
        .takes(true, to(&S::setDisplayShowAverageLapTime, true));
    table.check("displayShowSectorTimes", "Sektorenzeiten anzeigen")
        .takes(true, to(&S::setDisplayShowSectorTimes, true));
    table.check("displayShowIntermediateTimes", "Zwischenzeiten anstelle von Sektorenzeiten anzeigen")
        .when(&S::displayShowSectorTimes)
        .from(to(&S::setDisplayShowSectorTimes, true))
        .takes(true, to(&S::setDisplayShowIntermediateTimes, true));
    table.check("displayFuel", "Tankanzeige anzeigen").takes(true, to(&S::setDisplayFuel, true));
}

inline void addSpeed(Table& table)
{
    table.check("displaySpeed", "Geschwindigkeit anzeigen").takes(true, to(&S::setDisplaySpeed, true));
    const QStringList texts{"in km/h", "in m/s", "in mph"};
    for (int type = 0; type < texts.size(); ++type)
        table.radio(QStringLiteral("speedDisplayType%1").arg(type), texts[type])
            .shows(type == 0)
            .when(&S::displaySpeed)
            .from([type](S& settings) {
                settings.setDisplaySpeed(true);
                settings.setSpeedDisplayType(type == 0 ? 2 : 0);
            })
            .takes(true, to(&S::setSpeedDisplayType, type));
}

inline void addSizeAndColors(Table& table)
{
    const QString example = "00:08:531";
    table.combo("displaySize", "Anzeigegröße:", "sehr groß, groß, medium, klein")
        .shows(1)
        .takes(3, to(&S::setDisplaySize, int(S::Small)));
    for (int slot = 1; slot <= S::Tracks; ++slot)
        table.push(qPrintable(QStringLiteral("colorSlot%1").arg(slot)),
                   QStringLiteral("Farbe Slot %1").arg(slot), example);
    table.push("colorBestLapAndStatus", "Farbe Bestzeit, Status, Tankreserve", example);
}

inline void addSounds(Table& table)
{
    const QString file("/tmp/Hupe & mehr.wav");
    table.place("Töne");
    table.edit("newBestLapSound", "Neue Bestzeit:")
        .shows("newBestLap.wav")
        .takes(file, to(&S::setNewBestLapSound, file));
    table.push("newBestLapSoundBrowse", "Browse");
    table.edit("driveThroughSound", "Drive Through:")
        .shows("driveThrough.wav")
        .takes(file, to(&S::setDriveThroughSound, file));
    table.push("driveThroughSoundBrowse", "Browse");
    table.edit("redLightSound", "Rotes Ampellicht:")
        .shows("redLight.wav")
        .takes(file, to(&S::setRedLightSound, file));
    table.push("redLightSoundBrowse", "Browse");
    table.edit("greenLightSound", "Grünes Ampellicht:")
        .shows("greenLight.wav")
        .takes("", to(&S::setGreenLightSound, QString("")));
    table.push("greenLightSoundBrowse", "Browse");
}

inline void addVoice(Table& table)
{
    const Change voice = to(&S::setSoundEnhanced, true);
    table.check("soundEnhanced", "Sprachausgabe nutzen").takes(true, voice);
    table.check("soundVoiceOutputLaps", "Rundenanzahl ansagen")
        .when(&S::soundEnhanced)
        .from(voice)
        .takes(true, to(&S::setSoundVoiceOutputLaps, true));
    table.check("soundVoiceOutputLapTime", "Rundenzeit ansagen")
        .when(&S::soundEnhanced)
        .from(voice)
        .takes(true, to(&S::setSoundVoiceOutputLapTime, true));
    table.check("soundVoiceOutputBestLapTime", "Nur neue Bestzeiten ansagen")
        .when(
            [](const S& settings) { return settings.soundEnhanced() && settings.soundVoiceOutputLapTime(); })
        .from([](S& settings) {
            settings.setSoundEnhanced(true);
            settings.setSoundVoiceOutputLapTime(true);
        })
        .takes(true, to(&S::setSoundVoiceOutputBestLapTime, true));
}

inline void addStorage(Table& table)
{
    const Change useFolder = to(&S::setStorageApproach, int(S::UseDefaultPath));
    const auto usesFolder = [](const S& settings) { return settings.storageApproach() == S::UseDefaultPath; };
    table.place("Speichern", "Wählen Sie die standard Aktion beim speichern eines Rennens:");
    table.radio("storageApproach0", "beim speichern immer nach Dateiname und Zielordner fragen")
        .shows(true)
        .from(useFolder)
        .takes(true, to(&S::setStorageApproach, int(S::AskForFileName)));
    table.radio("storageApproach1", "immer in folgenden Ordner speichern:").takes(true, useFolder);
    table.edit("storageDefaultPath", "")
        .shows("")
        .when(usesFolder)
        .from(useFolder)
        .takes("/home/rennen", to(&S::setStorageDefaultPath, QString("/home/rennen")));
    table.push("storageDefaultPathBrowse", "Browse").when(usesFolder);
    table.place("Speichern", "Zeitformat beim speichern");
    const QStringList texts{"Zeiten im Format mm:ss:zzz speichern (z.B. 0:08:531)",
                            "Zeiten im Format s,zzz speichern (z.B. 8,531)",
                            "Zeiten im Format mm:ss,zzz speichern (z.B. 0:08,531)"};
    for (int format = 0; format < texts.size(); ++format)
        table.radio(QStringLiteral("storageCsvTimeFormat%1").arg(format), texts[format])
            .shows(format == 0)
            .from(to(&S::setStorageCsvTimeFormat, format == 0 ? 2 : 0))
            .takes(true, to(&S::setStorageCsvTimeFormat, format));
}

inline void addNetwork(Table& table)
{
    table.place("Netzwerk");
    table.edit("port", "Port:", "5 characters, 0 to 65535")
        .shows("47624")
        .takes("65535", to(&S::setPort, quint16(65535)));
    table
        .check("sendShutdownToClients",
               "Netzwerkanzeigerechner bei Programmende auf Host automatisch herunterfahren")
        .takes(true, to(&S::setSendShutdownToClients, true));
    table
        .time("shutdownWaitTime", "Wartezeit vor herunterfahren des Remote Rechners:", "mm:ss", QTime(0, 0),
              QTime(0, 10))
        .shows(QTime(0, 0, 15))
        .when(&S::sendShutdownToClients)
        .from(to(&S::setSendShutdownToClients, true))
        .takes(QTime(0, 9, 59), to(&S::setShutdownWaitTime, 599));
    table.check("clientsMuted", "Netzwerkanzeigen stumm schalten")
        .shows(true)
        .takes(false, to(&S::setClientsMuted, false));
}

inline void addCodes(Table& table)
{
    table.place("QR Code");
    table.check("qrCodeHandlingEnabled", "QR Code Erkennung aktivieren")
        .takes(true, to(&S::setQrCodeHandlingEnabled, true));
    table.combo("qrCodeHandlingCamera", "Kamera:", cameras().join(", "))
        .shows(0)
        .when(&S::qrCodeHandlingEnabled)
        .from(to(&S::setQrCodeHandlingEnabled, true))
        .takes(1, to(&S::setQrCodeHandlingCamera, cameras()[1]));
}

inline Table all()
{
    Table table;
    addLists(table);
    addDisplayFlags(table);
    addSpeed(table);
    addSizeAndColors(table);
    addSounds(table);
    addVoice(table);
    addStorage(table);
    addNetwork(table);
    addCodes(table);
    table.place(QString());
    table.push("okButton", "&Ok");
    table.push("cancelButton", "&Abbrechen");
    table.otherTexts = QStringList{
        "Die aktuell ausgewählte Strecke ist mit \"x\" markiert.",
        "Diese Einstellungen sind relevant wenn der Tornik seine Anzeige auf einen <br>zweiten "
        "Rechner im Netzwerk übertragen soll.<br>",
        "Für alle Fahrzeuge und Fahrer können QR Codes erzeugt und ausgedruckt werden. Eine Webcam liest sie "
        "ein, so dass Fahrer und Fahrzeuge an den Anzeigen der Spuren ohne Tastatur ausgewählt werden."};
    return table;
}

} // namespace SettingsTable

#endif
