<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="de">
<context>
    <name>AboutText</name>
    <message>
        <source>Über den Tornik</source>
        <translation>About Tornik</translation>
    </message>
    <message>
        <source>&lt;h1&gt;Über den Tornik&lt;/h1&gt;&lt;hr&gt;</source>
        <translation>&lt;h1&gt;About Tornik&lt;/h1&gt;&lt;hr&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;&lt;b&gt;Version:&lt;/b&gt; %1&lt;br&gt;</source>
        <translation>&lt;p&gt;&lt;b&gt;Version:&lt;/b&gt; %1&lt;br&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Autor:&lt;/b&gt; %1&lt;br&gt;</source>
        <translation>&lt;b&gt;Author:&lt;/b&gt; %1&lt;br&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Weitere Informationen:&lt;/b&gt; die Datei "README.md", die dem Programm beiliegt&lt;/p&gt;</source>
        <translation>&lt;b&gt;Further information:&lt;/b&gt; the file "README.md" that comes with the program&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;Die ausführliche Anleitung ist die Datei "Bedienungsanleitung.pdf", die mit dem Programm geliefert wird.&lt;/p&gt;</source>
        <translation>&lt;p&gt;The detailed manual is the file "Bedienungsanleitung.pdf" that comes with the program.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;Diese Software beruht auf dem Qt Framework in der Version 5.5.0: %1&lt;/p&gt;</source>
        <translation>&lt;p&gt;This software rests on the Qt framework in the version 5.5.0: %1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;Für den Parallelport verwendet sie den I/O-Port-Treiber inpout32.dll in seiner 64-Bit-Version: %1, nach dem ursprünglichen Treiber von %2&lt;/p&gt;</source>
        <translation>&lt;p&gt;For the parallel port it uses the I/O port driver inpout32.dll in its 64-bit version: %1, after the original driver from %2&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>CCarList</name>
    <message>
        <source>Freifeld %1</source>
        <translation>Free field %1</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Maßstab (1/X)</source>
        <translation>Scale (1/X)</translation>
    </message>
    <message>
        <source>gefahrene Strecke (cm)</source>
        <translation>Distance driven (cm)</translation>
    </message>
    <message>
        <source>Hersteller Original</source>
        <translation>Original manufacturer</translation>
    </message>
    <message>
        <source>Typ Original</source>
        <translation>Original type</translation>
    </message>
    <message>
        <source>Startnummer</source>
        <translation>Start number</translation>
    </message>
    <message>
        <source>Hersteller Model</source>
        <translation>Model manufacturer</translation>
    </message>
    <message>
        <source>Klasse</source>
        <translation>Class</translation>
    </message>
    <message>
        <source>Chassis</source>
        <translation>Chassis</translation>
    </message>
    <message>
        <source>Kommentar</source>
        <translation>Comment</translation>
    </message>
    <message>
        <source>Tankgröße</source>
        <translation>Tank size</translation>
    </message>
    <message>
        <source>Reserveanzeige</source>
        <translation>Reserve warning</translation>
    </message>
    <message>
        <source>Min. Verbrauch</source>
        <translation>Min. consumption</translation>
    </message>
    <message>
        <source>Max. Verbrauch</source>
        <translation>Max. consumption</translation>
    </message>
    <message>
        <source>Fahrzeug Name</source>
        <translation>Car name</translation>
    </message>
    <message>
        <source>Klassifizierung</source>
        <translation>Classification</translation>
    </message>
    <message>
        <source>Massstab 1/X</source>
        <translation>Scale 1/X</translation>
    </message>
    <message>
        <source>Tankgroesse</source>
        <translation>Tank size</translation>
    </message>
    <message>
        <source>Reservelevel</source>
        <translation>Reserve level</translation>
    </message>
</context>
<context>
    <name>CCsvWriter</name>
    <message>
        <source>ja</source>
        <translation>yes</translation>
    </message>
    <message>
        <source>nein</source>
        <translation>no</translation>
    </message>
</context>
<context>
    <name>CDriverList</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Fahrer Name</source>
        <translation>Driver name</translation>
    </message>
</context>
<context>
    <name>CEndConditionLapLimit</name>
    <message>
        <source>Ende nach %1 Runden</source>
        <translation>End after %1 laps</translation>
    </message>
    <message>
        <source> auf allen Spuren</source>
        <translation> on all tracks</translation>
    </message>
</context>
<context>
    <name>CEndConditionNone</name>
    <message>
        <source>Keine Endebedingung</source>
        <translation>No end condition</translation>
    </message>
</context>
<context>
    <name>CEndConditionTimeLimit</name>
    <message>
        <source>Ende nach %1 Sekunden</source>
        <translation>End after %1 seconds</translation>
    </message>
</context>
<context>
    <name>CFastestLapList</name>
    <message>
        <source>id</source>
        <translation>id</translation>
    </message>
    <message>
        <source>carId</source>
        <translation>carId</translation>
    </message>
    <message>
        <source>driverId</source>
        <translation>driverId</translation>
    </message>
    <message>
        <source>racewayId</source>
        <translation>racewayId</translation>
    </message>
    <message>
        <source>trackId</source>
        <translation>trackId</translation>
    </message>
    <message>
        <source>time</source>
        <translation>time</translation>
    </message>
    <message>
        <source>Fahrer</source>
        <translation>Driver</translation>
    </message>
    <message>
        <source>Fahrzeug</source>
        <translation>Car</translation>
    </message>
    <message>
        <source>Spur</source>
        <translation>Track</translation>
    </message>
    <message>
        <source>Zeit</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>Rennstrecke</source>
        <translation>Raceway</translation>
    </message>
    <message>
        <source>Bestzeit</source>
        <translation>Best time</translation>
    </message>
</context>
<context>
    <name>CInfoFrame</name>
    <message>
        <source> Renninformationen </source>
        <translation> Race information </translation>
    </message>
    <message>
        <source>Rennstrecke: </source>
        <translation>Raceway: </translation>
    </message>
    <message>
        <source>Startbedingung: </source>
        <translation>Start condition: </translation>
    </message>
    <message>
        <source>Endebedingung: </source>
        <translation>End condition: </translation>
    </message>
    <message>
        <source>Siegbedingung: </source>
        <translation>Winning condition: </translation>
    </message>
    <message>
        <source>Renndauer: </source>
        <translation>Race time: </translation>
    </message>
    <message>
        <source>fliegender Start</source>
        <translation>flying start</translation>
    </message>
    <message>
        <source>Start in %1 Minuten</source>
        <translation>Start in %1 minutes</translation>
    </message>
    <message>
        <source>Unbekannt</source>
        <translation>Unknown</translation>
    </message>
    <message>
        <source>keine Endebedingung</source>
        <translation>no end condition</translation>
    </message>
    <message>
        <source>Zeitlimit %1</source>
        <translation>Time limit %1</translation>
    </message>
    <message numerus="yes">
        <source>Ende nach %n Runden</source>
        <translation>
            <numerusform>End after %n lap</numerusform>
            <numerusform>End after %n laps</numerusform>
        </translation>
    </message>
    <message>
        <source>die meisten Runden</source>
        <translation>most laps</translation>
    </message>
    <message>
        <source>die schnellste Runde</source>
        <translation>fastest lap</translation>
    </message>
    <message>
        <source>die beste Durchschnittszeit</source>
        <translation>best average time</translation>
    </message>
    <message>
        <source>die Zielzeit möglichst genau erreicht</source>
        <translation>a lap closest to the target time</translation>
    </message>
    <message>
        <source>die Durchschnittszeit möglichst nahe an Zielzeit</source>
        <translation>average closest to the target time</translation>
    </message>
    <message>
        <source>die konsistentesten Rundenzeiten</source>
        <translation>most constant lap times</translation>
    </message>
</context>
<context>
    <name>CKelmoMainDialog</name>
    <message>
        <source>Tornik</source>
        <translation>Tornik</translation>
    </message>
    <message>
        <source>Programm beenden?</source>
        <translation>Quit the program?</translation>
    </message>
    <message>
        <source>Sind Sie sicher, dass Sie das Programm beenden möchten?</source>
        <translation>Are you sure that you want to quit the program?</translation>
    </message>
    <message>
        <source>&amp;Ja</source>
        <translation>&amp;Yes</translation>
    </message>
    <message>
        <source>&amp;Nein</source>
        <translation>&amp;No</translation>
    </message>
    <message>
        <source>Rennen speichern als ...</source>
        <translation>Save race as ...</translation>
    </message>
    <message>
        <source>CSV-Datei (*.csv)</source>
        <translation>CSV file (*.csv)</translation>
    </message>
</context>
<context>
    <name>CKelmoPortSimulator</name>
    <message>
        <source>Slot &amp;</source>
        <translation>Slot &amp;</translation>
    </message>
    <message>
        <source>Alle Slots</source>
        <translation>All slots</translation>
    </message>
    <message>
        <source>Sektor2 Slot &amp;</source>
        <translation>Sector 2 slot &amp;</translation>
    </message>
    <message>
        <source>Alle Sektor 2</source>
        <translation>All sector 2</translation>
    </message>
    <message>
        <source>Sektor3 Slot &amp;</source>
        <translation>Sector 3 slot &amp;</translation>
    </message>
    <message>
        <source>Alle Sektor 3</source>
        <translation>All sector 3</translation>
    </message>
    <message>
        <source>Ende Slot &amp;</source>
        <translation>End slot &amp;</translation>
    </message>
    <message>
        <source>Alle Slots Ende</source>
        <translation>All slots end</translation>
    </message>
    <message>
        <source>Tanken &amp;</source>
        <translation>Refuel &amp;</translation>
    </message>
    <message>
        <source>Alle auftanken</source>
        <translation>Refuel all</translation>
    </message>
    <message>
        <source>Tanken Ende &amp;</source>
        <translation>Refuel end &amp;</translation>
    </message>
    <message>
        <source>Alle auftanken beenden</source>
        <translation>End refuelling of all</translation>
    </message>
    <message>
        <source>Simulator Modus</source>
        <translation>Simulator mode</translation>
    </message>
    <message>
        <source>Chaostaste</source>
        <translation>Chaos button</translation>
    </message>
</context>
<context>
    <name>CMainMenu</name>
    <message>
        <source>&amp;schnelles Rennen starten</source>
        <translation>&amp;Start quick race</translation>
    </message>
    <message>
        <source>Ein Rennen starten oder anhalten</source>
        <translation>Start or stop a race</translation>
    </message>
    <message>
        <source>&amp;Wettkampf Rennen starten</source>
        <translation>Start &amp;competition race</translation>
    </message>
    <message>
        <source>Ein Wettkampf Rennen starten oder anhalten</source>
        <translation>Start or stop a competition race</translation>
    </message>
    <message>
        <source>Rennen &amp;pausieren</source>
        <translation>&amp;Pause race</translation>
    </message>
    <message>
        <source>Ein laufendes Rennen pausieren</source>
        <translation>Pause a running race</translation>
    </message>
    <message>
        <source>Rennen sp&amp;eichern</source>
        <translation>Sav&amp;e race</translation>
    </message>
    <message>
        <source>Das abgeschlossene Rennen abspeichern</source>
        <translation>Save the finished race</translation>
    </message>
    <message>
        <source>&amp;Zusammenfassung anzeigen</source>
        <translation>Show su&amp;mmary</translation>
    </message>
    <message>
        <source>Daten des abgeschlossenen Rennens anzeigen</source>
        <translation>Show the data of the finished race</translation>
    </message>
    <message>
        <source>&amp;Einstellungen</source>
        <translation>Race se&amp;ttings</translation>
    </message>
    <message>
        <source>Einstellungen für ein Rennen vornehmen</source>
        <translation>Change the settings of a race</translation>
    </message>
    <message>
        <source>Alle Spuren an</source>
        <translation>All tracks on</translation>
    </message>
    <message>
        <source>Spannungsversorgung alle Spuren an</source>
        <translation>Switch the power of all tracks on</translation>
    </message>
    <message>
        <source>Alle Spuren aus</source>
        <translation>All tracks off</translation>
    </message>
    <message>
        <source>Spannungsversorgung alle Spuren aus</source>
        <translation>Switch the power of all tracks off</translation>
    </message>
    <message>
        <source>&amp;Grundeinstellungen</source>
        <translation>&amp;Basic settings</translation>
    </message>
    <message>
        <source>Grundeinstellungen vornehmen</source>
        <translation>Change the basic settings</translation>
    </message>
    <message>
        <source>Simulator Modus</source>
        <translation>Simulator mode</translation>
    </message>
    <message>
        <source>Schaltet den Simulator Modus an/aus</source>
        <translation>Switches the simulator mode on/off</translation>
    </message>
    <message>
        <source>Client &amp;herunterfahren</source>
        <translation>Shut the client &amp;down</translation>
    </message>
    <message>
        <source>Über Netzwerk verbundenen Anzeige Client herunterfahren</source>
        <translation>Shut down the display client connected over the network</translation>
    </message>
    <message>
        <source>&amp;Anzeige schnellste Runden</source>
        <translation>Show &amp;fastest laps</translation>
    </message>
    <message>
        <source>Anschauen von schnellsten Runden</source>
        <translation>Look at the fastest laps</translation>
    </message>
    <message>
        <source>&amp;Beenden</source>
        <translation>&amp;Quit</translation>
    </message>
    <message>
        <source>Tornik beenden</source>
        <translation>Quit Tornik</translation>
    </message>
    <message>
        <source>&amp;Über</source>
        <translation>&amp;About</translation>
    </message>
    <message>
        <source>Infos über diesen Tornik</source>
        <translation>Information about this Tornik</translation>
    </message>
    <message>
        <source>Spur &amp;%1</source>
        <translation>Track &amp;%1</translation>
    </message>
    <message>
        <source>Spannungsversorgung Spur %1 schalten</source>
        <translation>Switch the power of track %1</translation>
    </message>
    <message>
        <source>&amp;Rennen</source>
        <translation>&amp;Race</translation>
    </message>
    <message>
        <source>Spurstr&amp;om</source>
        <translation>Track p&amp;ower</translation>
    </message>
    <message>
        <source>&amp;Programm</source>
        <translation>&amp;Program</translation>
    </message>
    <message>
        <source>&amp;?</source>
        <translation>&amp;?</translation>
    </message>
    <message>
        <source>&amp;schnelles Rennen beenden</source>
        <translation>&amp;Stop quick race</translation>
    </message>
    <message>
        <source>&amp;Wettkampf Rennen beenden</source>
        <translation>Stop &amp;competition race</translation>
    </message>
    <message>
        <source>&amp;Pausiertes Rennen fortsetzen</source>
        <translation>&amp;Resume paused race</translation>
    </message>
    <message>
        <source>Spur &amp;%1 %2</source>
        <extracomment>%1 is the number of the track, %2 what a press does: "ausschalten" or "einschalten"</extracomment>
        <translation>Track &amp;%1: %2</translation>
    </message>
    <message>
        <source>ausschalten</source>
        <translation>switch off</translation>
    </message>
    <message>
        <source>einschalten</source>
        <translation>switch on</translation>
    </message>
</context>
<context>
    <name>CRace</name>
    <message>
        <source>Rennen wurde beendet</source>
        <translation>The race has ended</translation>
    </message>
</context>
<context>
    <name>CRaceList</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>date</source>
        <translation>date</translation>
    </message>
    <message>
        <source>settings</source>
        <translation>settings</translation>
    </message>
    <message>
        <source>Spur</source>
        <translation>Track</translation>
    </message>
    <message>
        <source>Fahrer</source>
        <translation>Driver</translation>
    </message>
    <message>
        <source>Fahrzeug</source>
        <translation>Car</translation>
    </message>
    <message>
        <source>Runde</source>
        <translation>Lap</translation>
    </message>
    <message>
        <source>Zeit</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>Sektor 1</source>
        <translation>Sector 1</translation>
    </message>
    <message>
        <source>Sektor 2</source>
        <translation>Sector 2</translation>
    </message>
    <message>
        <source>Sektor 3</source>
        <translation>Sector 3</translation>
    </message>
</context>
<context>
    <name>CRaceStartDlg</name>
    <message>
        <source>Wettkampf Rennen</source>
        <translation>Competition race</translation>
    </message>
    <message>
        <source>Rennen &amp;Starten</source>
        <translation>&amp;Start race</translation>
    </message>
    <message>
        <source>&amp;Abbrechen</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>Name des Rennens: </source>
        <translation>Name of the race: </translation>
    </message>
    <message>
        <source>Bitte geben Sie einen Namen für das Rennen ein. Das
Rennen wird unter diesem Namen abgespeichert.</source>
        <translation>Please enter a name for the race. The
race will be saved under this name.</translation>
    </message>
</context>
<context>
    <name>CRaceStartNoCondition</name>
    <message>
        <source>fliegender Start</source>
        <translation>flying start</translation>
    </message>
</context>
<context>
    <name>CRaceStartTimer</name>
    <message>
        <source>Start nach %1 Minuten</source>
        <translation>Start after %1 minutes</translation>
    </message>
</context>
<context>
    <name>CRaceStoreDlg</name>
    <message>
        <source>Als CSV Datei Speichern</source>
        <translation>Save as CSV file</translation>
    </message>
    <message>
        <source>In Datenbank Speichern</source>
        <translation>Save in the database</translation>
    </message>
    <message>
        <source>Rennen &amp;speichern</source>
        <translation>&amp;Save race</translation>
    </message>
    <message>
        <source>&amp;Abbrechen</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>Rennen speichern</source>
        <translation>Save race</translation>
    </message>
    <message>
        <source>Bitte geben Sie einen Namen für das Rennen ein. Das
Rennen wird unter diesem Namen abgespeichert.</source>
        <translation>Please enter a name for the race. The
race will be saved under this name.</translation>
    </message>
    <message>
        <source>Name des Rennens: </source>
        <translation>Name of the race: </translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Default</translation>
    </message>
</context>
<context>
    <name>CRaceSummaryDialog</name>
    <message>
        <source>Ergebnisübersicht</source>
        <translation>Results</translation>
    </message>
    <message>
        <source>Als &amp;CSV-Datei speichern</source>
        <translation>Save as &amp;CSV file</translation>
    </message>
    <message>
        <source>&amp;Schliessen</source>
        <translation>C&amp;lose</translation>
    </message>
</context>
<context>
    <name>CRaceToCsvWriter</name>
    <message>
        <source>Rennstrecke:</source>
        <translation>Raceway:</translation>
    </message>
    <message>
        <source>Startbedingung:</source>
        <translation>Start condition:</translation>
    </message>
    <message>
        <source>Endebedingung:</source>
        <translation>End condition:</translation>
    </message>
    <message>
        <source>Siegbedingung:</source>
        <translation>Winning condition:</translation>
    </message>
    <message>
        <source>Startzeit:</source>
        <translation>Start time:</translation>
    </message>
    <message>
        <source>Renndauer:</source>
        <translation>Race time:</translation>
    </message>
    <message>
        <source>Fahrername:</source>
        <translation>Driver:</translation>
    </message>
    <message>
        <source>Fahrzeug:</source>
        <translation>Car:</translation>
    </message>
    <message>
        <source>Durchschnittszeit:</source>
        <translation>Average time:</translation>
    </message>
    <message>
        <source>Status:</source>
        <translation>Status:</translation>
    </message>
    <message>
        <source>Rundenzeiten:</source>
        <translation>Lap times:</translation>
    </message>
    <message>
        <source>Sieger</source>
        <translation>Winner</translation>
    </message>
    <message>
        <source>Rundenzeit</source>
        <translation>Lap time</translation>
    </message>
    <message>
        <source>Sektor 1</source>
        <translation>Sector 1</translation>
    </message>
    <message>
        <source>Sektor 2</source>
        <translation>Sector 2</translation>
    </message>
    <message>
        <source>Sektor 3</source>
        <translation>Sector 3</translation>
    </message>
</context>
<context>
    <name>CRacewayList</name>
    <message>
        <source>Aktiv</source>
        <translation>Active</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Slots</source>
        <translation>Slots</translation>
    </message>
    <message>
        <source>Maßstab (1/X)</source>
        <translation>Scale (1/X)</translation>
    </message>
    <message>
        <source>Maske "offen"</source>
        <translation>Mask "open"</translation>
    </message>
    <message>
        <source>Maske Chaostaste</source>
        <translation>Mask chaos button</translation>
    </message>
    <message>
        <source>Chaostaste verfügbar</source>
        <translation>Chaos button available</translation>
    </message>
    <message>
        <source>Externes Signal für Chaosphase verfügbar</source>
        <translation>External signal for chaos phase available</translation>
    </message>
    <message>
        <source>Bahnstromabschaltung verfügbar</source>
        <translation>Track power can be switched</translation>
    </message>
    <message>
        <source>Externe Startampel verfügbar</source>
        <translation>External start lights available</translation>
    </message>
    <message>
        <source>Tanksensor Setup</source>
        <translation>Fuel sensor set-up</translation>
    </message>
    <message>
        <source>Anzahl Sektoren</source>
        <translation>Number of sectors</translation>
    </message>
    <message>
        <source>IOSettings</source>
        <translation>IOSettings</translation>
    </message>
    <message>
        <source>Min. Rundenzeit</source>
        <translation>Min. lap time</translation>
    </message>
    <message>
        <source>Start- und Endesensor separat</source>
        <translation>Start and end sensor separate</translation>
    </message>
</context>
<context>
    <name>CTrackDisplay</name>
    <message>
        <source>LAST</source>
        <translation>LAST</translation>
    </message>
    <message>
        <source>FAST</source>
        <translation>FAST</translation>
    </message>
    <message>
        <source>AVER</source>
        <translation>AVER</translation>
    </message>
    <message>
        <source>SPEED</source>
        <translation>SPEED</translation>
    </message>
    <message>
        <source>DRIVER</source>
        <translation>DRIVER</translation>
    </message>
    <message>
        <source>CAR</source>
        <translation>CAR</translation>
    </message>
    <message>
        <source>FUEL</source>
        <translation>FUEL</translation>
    </message>
    <message>
        <source>INT1</source>
        <translation>INT1</translation>
    </message>
    <message>
        <source>SEC1</source>
        <translation>SEC1</translation>
    </message>
    <message>
        <source>INT2</source>
        <translation>INT2</translation>
    </message>
    <message>
        <source>SEC2</source>
        <translation>SEC2</translation>
    </message>
    <message>
        <source>INT3</source>
        <translation>INT3</translation>
    </message>
    <message>
        <source>SEC3</source>
        <translation>SEC3</translation>
    </message>
</context>
<context>
    <name>CTrackSummary</name>
    <message>
        <source> Spur </source>
        <translation> Track </translation>
    </message>
    <message>
        <source>Fahrer: </source>
        <translation>Driver: </translation>
    </message>
    <message>
        <source>Fahrzeug: </source>
        <translation>Car: </translation>
    </message>
    <message>
        <source>Durchschnittszeit: </source>
        <translation>Average time: </translation>
    </message>
    <message>
        <source>Spur </source>
        <translation>Track </translation>
    </message>
    <message>
        <source>Runde</source>
        <translation>Lap</translation>
    </message>
    <message>
        <source>Zeit</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>Zeit Sektor 1</source>
        <translation>Time sector 1</translation>
    </message>
    <message>
        <source>Zeit Sektor 2</source>
        <translation>Time sector 2</translation>
    </message>
    <message>
        <source>Zeit Sektor 3</source>
        <translation>Time sector 3</translation>
    </message>
</context>
<context>
    <name>CTrackTexts</name>
    <message>
        <source>warten</source>
        <translation>wait</translation>
    </message>
    <message>
        <source>starten</source>
        <translation>start</translation>
    </message>
    <message>
        <source>läuft</source>
        <translation>running</translation>
    </message>
    <message>
        <source>frühstart</source>
        <translation>too early</translation>
    </message>
    <message>
        <source>beendet</source>
        <translation>finished</translation>
    </message>
    <message>
        <source>sieger</source>
        <translation>winner</translation>
    </message>
    <message>
        <source>pause</source>
        <translation>pause</translation>
    </message>
</context>
<context>
    <name>CWinningConditionAverageClosestToTargetTime</name>
    <message>
        <source>Fahrer %1 lag mit einer Durchschnittszeit von %2 am nächsten an der Zielzeit %3.</source>
        <translation>Driver %1 was closest to the target time %3 with an average of %2.</translation>
    </message>
    <message>
        <source>Durchschnittszeit am nächsten an Zielzeit %1</source>
        <translation>Average closest to the target time %1</translation>
    </message>
</context>
<context>
    <name>CWinningConditionClosestToTargetTime</name>
    <message>
        <source>Die siegreiche Runde war die %1. Runde mit einer Zeit von %2.</source>
        <translation>The winning lap was lap %1 with a time of %2.</translation>
    </message>
    <message>
        <source>am nächsten an Zielzeit %1</source>
        <translation>closest to the target time %1</translation>
    </message>
</context>
<context>
    <name>CWinningConditionFastestLap</name>
    <message>
        <source>Die schnellste Runde war die %1. Runde von %2 mit einer Zeit von %3.</source>
        <translation>The fastest lap was lap %1 of %2 with a time of %3.</translation>
    </message>
    <message>
        <source>schnellste Runde</source>
        <translation>fastest lap</translation>
    </message>
</context>
<context>
    <name>CWinningConditionLowestAvgTime</name>
    <message>
        <source>Die beste Durchschnittszeit hatte %1 mit einer Zeit von %2.</source>
        <translation>%1 had the best average with a time of %2.</translation>
    </message>
    <message>
        <source>geringste Durchschnittszeit</source>
        <translation>lowest average time</translation>
    </message>
</context>
<context>
    <name>CWinningConditionMostConstantTimes</name>
    <message>
        <source>Fehler: Diese Siegbedingung kann nicht auf mehr als %1 Rennteilnehmer angewendet werden.</source>
        <translation>Error: this winning condition can not be applied to more than %1 participants.</translation>
    </message>
    <message>
        <source>Fahrer %1 hat mit einer max. Abweichung von %2 gewonnen. Die schnellste Rundenzeit war %3, die langsamste %4.</source>
        <translation>Driver %1 has won with a maximum deviation of %2. The fastest lap time was %3, the slowest %4.</translation>
    </message>
    <message>
        <source>Konstanteste Rundenzeit</source>
        <translation>Most constant lap times</translation>
    </message>
    <message>
        <source>, die schlechtesten %1 Runden ignorieren</source>
        <translation>, ignore the worst %1 laps</translation>
    </message>
</context>
<context>
    <name>CWinningConditionMostConstantTimesWithTarget</name>
    <message>
        <source>Rundenzeit möglichst nahe an der Zielzeit %1</source>
        <translation>Lap time as close as possible to the target time %1</translation>
    </message>
</context>
<context>
    <name>CWinningConditionNone</name>
    <message>
        <source>Rennen beendet</source>
        <translation>Race finished</translation>
    </message>
    <message>
        <source>Keine Siegbedingung</source>
        <translation>No winning condition</translation>
    </message>
</context>
<context>
    <name>CWinningConditionNumOfLaps</name>
    <message>
        <source>Die meisten Runden gefahren hat %1.</source>
        <translation>%1 has driven the most laps.</translation>
    </message>
    <message>
        <source>Die meisten gefahrenen Runden bzw. Rundenlimit als erster erreicht</source>
        <translation>Most laps driven, or first at the lap limit</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>startet direkt ein schnelles Rennen mit Default Einstellungen</source>
        <translation>starts a quick race with default settings at once</translation>
    </message>
    <message>
        <source>startet das Programm als Fenster anstelle von Vollbild Modus.</source>
        <translation>starts the program in a window instead of full screen.</translation>
    </message>
    <message>
        <source>Startet als Anzeige für Daten von &lt;server_adresse&gt;. &lt;server_adresse&gt; muß die ip-Adresse oder der Hostname sein auf dem der Tornik ausgeführt wird. Alternativ kann auch &lt;server_adresse&gt;:&lt;server_port&gt; verwendet werden um auch den Port gezielt auswählen zu können.</source>
        <translation>Starts as a display for the data of &lt;server_adresse&gt;. &lt;server_adresse&gt; must be the IP address or the host name on which Tornik runs. Alternatively &lt;server_adresse&gt;:&lt;server_port&gt; can be used to choose the port, too.</translation>
    </message>
    <message>
        <source>Wartet auf &lt;server_port&gt; auf Verbindungen von zusätzlichen Anzeige Clients.</source>
        <translation>Waits on &lt;server_port&gt; for connections of additional display clients.</translation>
    </message>
    <message>
        <source>Setzt die Sprache der Anwendung auf &lt;locale&gt; (zur Zeit werden nur "de" für deutsch und "en" für englisch unterstützt)</source>
        <translation>Sets the language of the application to &lt;locale&gt; (at present only "de" for German and "en" for English are supported)</translation>
    </message>
</context>
</TS>
