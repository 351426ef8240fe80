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
    <name>CAvailableFeaturesPage</name>
    <message>
        <source>Chaostaste vorhanden</source>
        <translation>Chaos button present</translation>
    </message>
    <message>
        <source>Externes Signal für Chaosphase vorhanden</source>
        <translation>External signal for chaos phase present</translation>
    </message>
    <message>
        <source>Bahnstromabschaltung vorhanden</source>
        <translation>Track power can be switched</translation>
    </message>
    <message>
        <source>Externe Startampel vorhanden</source>
        <translation>External start lights present</translation>
    </message>
    <message>
        <source>Separate Start- und Zielsensoren (z.B. Dragstrip oder Bergrennstrecke)</source>
        <translation>Separate start and finish sensors (e.g. drag strip or hill climb)</translation>
    </message>
    <message>
        <source>&lt;b&gt;Zusatzfunktionen&lt;/b&gt;</source>
        <translation>&lt;b&gt;Additional features&lt;/b&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;Bitte auswählen welche Zusatzfunktionen an der Bahn vorhanden sind und angesteuert werden sollen.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Please choose which additional features the raceway has and shall use.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Sektorensensoren je Spur:</source>
        <translation>Sector sensors per track:</translation>
    </message>
    <message>
        <source>Tanksensoren je Spur:</source>
        <translation>Fuel sensors per track:</translation>
    </message>
    <message>
        <source>Keine</source>
        <translation>None</translation>
    </message>
    <message>
        <source>Die ganze Bahn wird als ein Sektor betrachtet der zwischen Start und Ziel liegt.</source>
        <translation>The whole raceway is taken as one sector between start and finish.</translation>
    </message>
    <message>
        <source>Ein Sektorsensor (zwei Sektoren)</source>
        <translation>One sector sensor (two sectors)</translation>
    </message>
    <message>
        <source>Die Bahn ist in zwei Sektoren unterteilt.&lt;br&gt;Sektor 1: Start -&gt; Sektorsensor&lt;br&gt;Sektor 2: Sektorsensor -&gt; Ziel</source>
        <translation>The raceway is divided into two sectors.&lt;br&gt;Sector 1: start -&gt; sector sensor&lt;br&gt;Sector 2: sector sensor -&gt; finish</translation>
    </message>
    <message>
        <source>Zwei Sektorsensoren (drei Sektoren)</source>
        <translation>Two sector sensors (three sectors)</translation>
    </message>
    <message>
        <source>Die Bahn ist in drei Sektoren unterteilt.&lt;br&gt;Sektor 1: Start -&gt; Sektorsensor 1&lt;br&gt;Sektor 2: Sektorsensor 1 -&gt; Sektorsensor 2&lt;br&gt;Sektor 3: Sektorsensor 2 -&gt; Ziel</source>
        <translation>The raceway is divided into three sectors.&lt;br&gt;Sector 1: start -&gt; sector sensor 1&lt;br&gt;Sector 2: sector sensor 1 -&gt; sector sensor 2&lt;br&gt;Sector 3: sector sensor 2 -&gt; finish</translation>
    </message>
    <message>
        <source>Die Bahn hat keine separaten Sensoren für die Tankfunktion.&lt;BR&gt; In diesem Fall kann die Tankfunktion nur mit dem Start/Ziel Sensor genutzt werden.</source>
        <translation>The raceway has no separate sensors for refuelling.&lt;BR&gt; In this case refuelling can only be used with the start/finish sensor.</translation>
    </message>
    <message>
        <source>ein Tanksensor</source>
        <translation>one fuel sensor</translation>
    </message>
    <message>
        <source>Die Bahn besitzt einen separaten Tanksensor je Spur.&lt;BR&gt; Solange der Sensor aktiv ist wird getankt. Wird der Sensor inaktiv endet der Tankvorgang.</source>
        <translation>The raceway has a separate fuel sensor per track.&lt;BR&gt; The car is refuelled as long as the sensor is active. Refuelling ends when the sensor becomes inactive.</translation>
    </message>
    <message>
        <source>Zone mit Start/Ziel als Beginsensor und Endesensor</source>
        <translation>Zone with start/finish as begin sensor and an end sensor</translation>
    </message>
    <message>
        <source>Jede Spur hat eine Tankzone nach dem Start/Ziel Sensor.&lt;BR&gt; Der Tankvorgang startet wenn der Start/Ziel Sensor detektiert wurde und endet, wenn der Endesensor detektiert wurde.</source>
        <translation>Each track has a fuel zone behind the start/finish sensor.&lt;BR&gt; Refuelling starts when the start/finish sensor was detected and ends when the end sensor was detected.</translation>
    </message>
    <message>
        <source>Zone mit Beginsensor und Start/Ziel als Endesensor</source>
        <translation>Zone with a begin sensor and start/finish as end sensor</translation>
    </message>
    <message>
        <source>Jede Spur hat eine Tankzone vor dem Start/Ziel Sensor.&lt;BR&gt; Der Tankvorgang startet wenn der Beginsensor detektiert wurde und endet, wenn der Start/Ziel Sensor detektiert wurde.</source>
        <translation>Each track has a fuel zone before the start/finish sensor.&lt;BR&gt; Refuelling starts when the begin sensor was detected and ends when the start/finish sensor was detected.</translation>
    </message>
    <message>
        <source>Zone mit Begin- und Endesensor</source>
        <translation>Zone with begin and end sensors</translation>
    </message>
    <message>
        <source>Jede Spur hat eine Tankzone mit separaten Sensoren für den Begin und das Ende der Zone.&lt;BR&gt; Der Tankvorgang startet wenn der Beginsensor detektiert wurde und endet, wenn der Endesensor detektiert wurde.</source>
        <translation>Each track has a fuel zone with separate sensors for the begin and the end of the zone.&lt;BR&gt; Refuelling starts when the begin sensor was detected and ends when the end sensor was detected.</translation>
    </message>
</context>
<context>
    <name>CCarEditorConfig</name>
    <message>
        <source>Farbe</source>
        <translation>Colour</translation>
    </message>
    <message>
        <source>Reifen</source>
        <translation>Tyres</translation>
    </message>
    <message>
        <source>Modifikationen</source>
        <translation>Modifications</translation>
    </message>
</context>
<context>
    <name>CCarEditorConfigDlg</name>
    <message>
        <source>Konfiguration des Fahrzeug Editor</source>
        <translation>Car editor configuration</translation>
    </message>
    <message>
        <source>Freifeld %1</source>
        <translation>Free field %1</translation>
    </message>
    <message>
        <source>&amp;Ok</source>
        <translation>&amp;Ok</translation>
    </message>
    <message>
        <source>&amp;Abbrechen</source>
        <translation>&amp;Cancel</translation>
    </message>
</context>
<context>
    <name>CCarEditorDlg</name>
    <message>
        <source>Fahrzeug Editor</source>
        <translation>Car editor</translation>
    </message>
    <message>
        <source>Fahrzeug Name</source>
        <translation>Car name</translation>
    </message>
    <message>
        <source>Hersteller Original</source>
        <translation>Original manufacturer</translation>
    </message>
    <message>
        <source>Typenbezeichnung Original</source>
        <translation>Original type</translation>
    </message>
    <message>
        <source>Startnummer</source>
        <translation>Start number</translation>
    </message>
    <message>
        <source>Fahrzeug Maßstab 1/</source>
        <translation>Car scale 1/</translation>
    </message>
    <message>
        <source>Fahrzeug Klasse</source>
        <translation>Car class</translation>
    </message>
    <message>
        <source>Hersteller des Modell</source>
        <translation>Model manufacturer</translation>
    </message>
    <message>
        <source>Fahrzeug Chassis</source>
        <translation>Car chassis</translation>
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
        <source>Reservelevel</source>
        <translation>Reserve level</translation>
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
        <source>gefahrene Strecke (cm)</source>
        <translation>Distance driven (cm)</translation>
    </message>
    <message>
        <source>z.B. Porsche</source>
        <translation>e.g. Porsche</translation>
    </message>
    <message>
        <source>z.B. 917k</source>
        <translation>e.g. 917k</translation>
    </message>
    <message>
        <source>sehr schnell</source>
        <translation>very fast</translation>
    </message>
    <message>
        <source>schnell</source>
        <translation>fast</translation>
    </message>
    <message>
        <source>normal</source>
        <translation>normal</translation>
    </message>
    <message>
        <source>langsam</source>
        <translation>slow</translation>
    </message>
    <message>
        <source>sehr langsam</source>
        <translation>very slow</translation>
    </message>
    <message>
        <source>z.B. Carrera</source>
        <translation>e.g. Carrera</translation>
    </message>
    <message>
        <source>z.B. Carrera D124</source>
        <translation>e.g. Carrera D124</translation>
    </message>
    <message>
        <source>Ändern</source>
        <translation>Change</translation>
    </message>
    <message>
        <source>Editor &amp;konfigurieren</source>
        <translation>Confi&amp;gure editor</translation>
    </message>
    <message>
        <source>&amp;Ok</source>
        <translation>&amp;Ok</translation>
    </message>
    <message>
        <source>&amp;Abbrechen</source>
        <translation>&amp;Cancel</translation>
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
    <name>CChaosButtonPage</name>
    <message>
        <source>&lt;b&gt;Zustand "Chaostaste gedrückt" eingeben&lt;/b&gt;</source>
        <translation>&lt;b&gt;Enter the state "chaos button pressed"&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Bitte halten Sie jetzt die Chaostaste gedrückt und drücken Sie die Schaltfläche "Ermitteln".</source>
        <translation>Please hold the chaos button down now and press the button "Learn".</translation>
    </message>
    <message>
        <source>Zustand "Chaostaste gedrückt":</source>
        <translation>State "chaos button pressed":</translation>
    </message>
    <message>
        <source>Bitte wählen Sie den Eingang an Ihrem Light &amp; Time AT2560 an dem die Chaostaste angeschlossen ist.</source>
        <translation>Please choose the input of your Light &amp; Time AT2560 to which the chaos button is connected.</translation>
    </message>
    <message>
        <source>Pin für Chaostaste:</source>
        <translation>Pin of the chaos button:</translation>
    </message>
</context>
<context>
    <name>CChaosPhaseOutputPage</name>
    <message>
        <source>&lt;b&gt;Portpin für "Signal während Chaosphase" angeben&lt;/b&gt;</source>
        <translation>&lt;b&gt;Port pin of the "signal during chaos phase"&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Bitte wählen Sie den Anschluß über den eine aktive Chaosphase signalisiert werden soll.</source>
        <translation>Please choose the connection that shall signal an active chaos phase.</translation>
    </message>
    <message>
        <source>Signal während Chaosphase:</source>
        <translation>Signal during chaos phase:</translation>
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
    <name>CDataCaptureGroup</name>
    <message>
        <source>Fahrzeugbezogene Datenerfassung</source>
        <translation>Data capture of cars</translation>
    </message>
    <message>
        <source>gefahrene Strecke je Fahrzeug erfassen</source>
        <translation>record the distance driven of each car</translation>
    </message>
    <message>
        <source>schnellste Rundenzeit erfassen</source>
        <translation>record the fastest lap time</translation>
    </message>
</context>
<context>
    <name>CDisplayTab</name>
    <message>
        <source>Rundenanzahl anzeigen</source>
        <translation>Show the number of laps</translation>
    </message>
    <message>
        <source>Rundenzeit anzeigen</source>
        <translation>Show the lap time</translation>
    </message>
    <message>
        <source>Beste Rundenzeit anzeigen</source>
        <translation>Show the best lap time</translation>
    </message>
    <message>
        <source>Rennstatus</source>
        <translation>Race state</translation>
    </message>
    <message>
        <source>Durchschnittliche Rundenzeit anzeigen</source>
        <translation>Show the average lap time</translation>
    </message>
    <message>
        <source>Tankanzeige anzeigen</source>
        <translation>Show the fuel gauge</translation>
    </message>
    <message>
        <source>Sektorenzeiten anzeigen</source>
        <translation>Show sector times</translation>
    </message>
    <message>
        <source>Zwischenzeiten anstelle von Sektorenzeiten anzeigen</source>
        <translation>Show split times instead of sector times</translation>
    </message>
    <message>
        <source>Geschwindigkeit anzeigen</source>
        <translation>Show the speed</translation>
    </message>
    <message>
        <source>in km/h</source>
        <translation>in km/h</translation>
    </message>
    <message>
        <source>in m/s</source>
        <translation>in m/s</translation>
    </message>
    <message>
        <source>in mph</source>
        <translation>in mph</translation>
    </message>
    <message>
        <source>sehr groß</source>
        <translation>very large</translation>
    </message>
    <message>
        <source>groß</source>
        <translation>large</translation>
    </message>
    <message>
        <source>medium</source>
        <translation>medium</translation>
    </message>
    <message>
        <source>klein</source>
        <translation>small</translation>
    </message>
    <message>
        <source>Anzeigegröße:</source>
        <translation>Display size:</translation>
    </message>
    <message>
        <source>Farbe Slot %1</source>
        <translation>Colour of slot %1</translation>
    </message>
    <message>
        <source>Farbe Bestzeit, Status, Tankreserve</source>
        <translation>Colour of best time, state, fuel reserve</translation>
    </message>
</context>
<context>
    <name>CDriverEditorDlg</name>
    <message>
        <source>Fahrer Editor</source>
        <translation>Driver editor</translation>
    </message>
    <message>
        <source>&amp;Ok</source>
        <translation>&amp;Ok</translation>
    </message>
    <message>
        <source>&amp;Abbrechen</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>Fahrer Name:</source>
        <translation>Driver name:</translation>
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
    <name>CEmptyFuelReactionGroup</name>
    <message>
        <source>Reaktion bei leerem Tank</source>
        <translation>Reaction to an empty tank</translation>
    </message>
    <message>
        <source>Minuten</source>
        <translation>minutes</translation>
    </message>
    <message>
        <source>Runden nicht zählen</source>
        <translation>Don't count laps</translation>
    </message>
    <message>
        <source>Spurabschaltung</source>
        <translation>Switch the track off</translation>
    </message>
    <message>
        <source>Zeitstrafe pro Runde:</source>
        <translation>Time penalty per lap:</translation>
    </message>
    <message>
        <source>Stottern mit Frequenz:</source>
        <translation>Stutter with frequency:</translation>
    </message>
    <message>
        <source>%1Hz</source>
        <translation>%1Hz</translation>
    </message>
</context>
<context>
    <name>CEndConditionGroup</name>
    <message>
        <source>Endebedingung</source>
        <translation>End condition</translation>
    </message>
    <message>
        <source>Stunden</source>
        <translation>hours</translation>
    </message>
    <message>
        <source>Runden</source>
        <translation>laps</translation>
    </message>
    <message>
        <source>auf allen Spuren</source>
        <translation>on all tracks</translation>
    </message>
    <message>
        <source>bei erreichen der max. Runden Spurzähler anhalten</source>
        <translation>stop the counter of a track at its last lap</translation>
    </message>
    <message>
        <source>Runden abwärts zählen</source>
        <translation>count laps down</translation>
    </message>
    <message>
        <source>Keine</source>
        <translation>None</translation>
    </message>
    <message>
        <source>Ende nach </source>
        <translation>End after </translation>
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
    <name>CFinishPage</name>
    <message>
        <source>&lt;b&gt;Fertigstellen&lt;/b&gt;</source>
        <translation>&lt;b&gt;Finish&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Sie haben nun alle erforderlichen Daten zum erstellen einer neuen Rennstrecke eingegeben. Drücken Sie jetzt "Fertigstellen" um die Rennstrecke mit den von Ihnen gemachten Einstellungen zu speichern.</source>
        <translation>You have now entered all data that a new raceway needs. Press "Finish" now to save the raceway with your settings.</translation>
    </message>
</context>
<context>
    <name>CFuelFunctionGroup</name>
    <message>
        <source>Tankfunktion</source>
        <translation>Fuel function</translation>
    </message>
    <message>
        <source>Keine Tankfunktion oder Tankfunktion durch Control Unit gesteuert</source>
        <translation>No fuel function, or fuel function controlled by the Control Unit</translation>
    </message>
    <message>
        <source>Fahrzeugspezifische Tankeinstellungen verwenden</source>
        <translation>Use the fuel settings of each car</translation>
    </message>
    <message>
        <source>Tankeinstellungen für alle gleich</source>
        <translation>Same fuel settings for all</translation>
    </message>
</context>
<context>
    <name>CFuelTankGroup</name>
    <message>
        <source>Tankeinstellungen</source>
        <translation>Fuel settings</translation>
    </message>
    <message>
        <source>Zeitintervall beim Tanken (im Format s:zzz): </source>
        <translation>Interval of refuelling (format s:zzz): </translation>
    </message>
    <message>
        <source>Füllmenge pro Zeitintervall beim Tanken:</source>
        <translation>Filling amount per interval of refuelling:</translation>
    </message>
    <message>
        <source>Rundenzeit für minimalen Verbrauch (im Format mm:ss:zzz):</source>
        <translation>Lap time of minimum consumption (format mm:ss:zzz):</translation>
    </message>
    <message>
        <source>Rundenzeit für maximalen Verbrauch (im Format mm:ss:zzz):</source>
        <translation>Lap time of maximum consumption (format mm:ss:zzz):</translation>
    </message>
    <message>
        <source>Minimaler Verbrauch pro Runde:</source>
        <translation>Minimum consumption per lap:</translation>
    </message>
    <message>
        <source>Maximaler Verbrauch pro Runde:</source>
        <translation>Maximum consumption per lap:</translation>
    </message>
    <message>
        <source>Größe des Tanks:</source>
        <translation>Size of the tank:</translation>
    </message>
    <message>
        <source>Warnschwelle Tankreserve:</source>
        <translation>Fuel reserve warning level:</translation>
    </message>
    <message>
        <source>Solange ein Fahrzeug beim Tanken steht, kommt nach jedem Zeitintervall die Füllmenge hinzu, bis der Tank voll ist.</source>
        <translation>As long as a car refuels, the filling amount is added after each interval until the tank is full.</translation>
    </message>
    <message>
        <source>Der Verbrauch steigt zwischen den beiden Rundenzeiten linear vom minimalen zum maximalen an; darüber und darunter bleibt er gleich.</source>
        <translation>Between the two lap times the consumption rises linearly from the minimum to the maximum; beyond them it stays the same.</translation>
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
    <name>CIoInterfacePage</name>
    <message>
        <source>&lt;b&gt;Hardware Interface konfigurieren&lt;/b&gt;</source>
        <translation>&lt;b&gt;Configure the hardware interface&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Bitte wählen Sie die Hardware Schnittstelle über welche Ihre Bahn mit dem Computer verbunden ist und geben Sie ggf. die notwendigen Konfigurationsdaten an.</source>
        <translation>Please choose the hardware interface that connects your raceway with the computer and enter its configuration where needed.</translation>
    </message>
    <message>
        <source>Parallel Port</source>
        <translation>Parallel Port</translation>
    </message>
    <message>
        <source>IO-Warrior24</source>
        <translation>IO-Warrior24</translation>
    </message>
    <message>
        <source>IO-Warrior40</source>
        <translation>IO-Warrior40</translation>
    </message>
    <message>
        <source>Carrera CU</source>
        <translation>Carrera CU</translation>
    </message>
    <message>
        <source>IO-Warrior56</source>
        <translation>IO-Warrior56</translation>
    </message>
    <message>
        <source>IO-Warrior28</source>
        <translation>IO-Warrior28</translation>
    </message>
    <message>
        <source>IO-Warrior100</source>
        <translation>IO-Warrior100</translation>
    </message>
    <message>
        <source>L&amp;T AT2560</source>
        <translation>L&amp;T AT2560</translation>
    </message>
    <message>
        <source>Hardware Schnittstelle:</source>
        <translation>Hardware interface:</translation>
    </message>
    <message>
        <source>Zur Verbindung mit einer Carrera Control Unit wird ein&lt;br&gt;Datenkabel benötigt, welches die Verbindung mittels&lt;br&gt;serieller Schnittstelle herstellt.</source>
        <translation>To connect a Carrera Control Unit a data cable&lt;br&gt;is needed that makes the connection over&lt;br&gt;a serial port.</translation>
    </message>
    <message>
        <source>Serielle Schnittstelle</source>
        <translation>Serial port</translation>
    </message>
    <message>
        <source>Die Light &amp; Time AT2560 Hardware wird&lt;br&gt;über eine virtuelle serielle Schnittstelle&lt;br&gt;verbunden.</source>
        <translation>The Light &amp; Time AT2560 hardware is&lt;br&gt;connected over a virtual serial&lt;br&gt;port.</translation>
    </message>
    <message>
        <source>Es werden bis zu vier RaceControl Geräte unterstützt. &lt;br&gt;Bitte wählen Sie die seriellen Schnittstellen für Ihre RaceControl &lt;br&gt;Hardware.</source>
        <translation>Up to four RaceControl devices are supported. &lt;br&gt;Please choose the serial ports of your RaceControl &lt;br&gt;hardware.</translation>
    </message>
    <message>
        <source>RaceControl 1</source>
        <translation>RaceControl 1</translation>
    </message>
    <message>
        <source>RaceControl 2</source>
        <translation>RaceControl 2</translation>
    </message>
    <message>
        <source>RaceControl 3</source>
        <translation>RaceControl 3</translation>
    </message>
    <message>
        <source>RaceControl 4</source>
        <translation>RaceControl 4</translation>
    </message>
    <message>
        <source>nicht vorhanden</source>
        <translation>not present</translation>
    </message>
    <message>
        <source>RaceControl</source>
        <translation>RaceControl</translation>
    </message>
</context>
<context>
    <name>CKelmoMain</name>
    <message>
        <source>System herunterfahren</source>
        <translation>Shut down the system</translation>
    </message>
    <message>
        <source>Abbrechen</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Sofort herunterfahren</source>
        <translation>Shut down now</translation>
    </message>
    <message>
        <source>Vorgang fortsetzen?</source>
        <translation>Continue?</translation>
    </message>
    <message>
        <source>Das System wird in %1 Sekunden heruntergefahren</source>
        <translation>The system will be shut down in %1 seconds</translation>
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
    <name>CKelmoNetworkClient</name>
    <message>
        <source>Verbindungsanfrage wurde von der Gegenstelle abgelehnt. Stellen Sie sicher, dass der Server läuft und die Verbindungseinstellungen korrekt sind.</source>
        <translation>The connection was refused by the other side. Make sure that the server runs and that the connection settings are right.</translation>
    </message>
    <message>
        <source>Verbindung wurde unterbrochen.</source>
        <translation>The connection was interrupted.</translation>
    </message>
    <message>
        <source>Server nicht gefunden. Bitte überprüfen Sie die angegebene Adresse und den Port.</source>
        <translation>Server not found. Please check the given address and port.</translation>
    </message>
    <message>
        <source>RaceSettings falsch! %1 zu %2</source>
        <translation>RaceSettings wrong! %1 to %2</translation>
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
    <name>CKelmoRaceAnalyzer</name>
    <message>
        <source>&amp;Schliessen</source>
        <translation>C&amp;lose</translation>
    </message>
    <message>
        <source>E&amp;xportieren</source>
        <translation>E&amp;xport</translation>
    </message>
    <message>
        <source>Schnellsten Runden</source>
        <translation>Fastest Laps</translation>
    </message>
    <message>
        <source>&lt;b&gt;Filter: &lt;/b&gt;</source>
        <translation>&lt;b&gt;Filter: &lt;/b&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Rennstrecke&amp;nbsp;&lt;/b&gt;</source>
        <translation>&lt;b&gt;Raceway&amp;nbsp;&lt;/b&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Fahrspur&amp;nbsp;&lt;/b&gt;</source>
        <translation>&lt;b&gt;Track&amp;nbsp;&lt;/b&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Fahrer&amp;nbsp;&lt;/b&gt;</source>
        <translation>&lt;b&gt;Driver&amp;nbsp;&lt;/b&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Fahrzeug&amp;nbsp;&lt;/b&gt;</source>
        <translation>&lt;b&gt;Car&amp;nbsp;&lt;/b&gt;</translation>
    </message>
    <message>
        <source>&lt;beliebig&gt;</source>
        <translation>&lt;any&gt;</translation>
    </message>
    <message>
        <source>Spur %1</source>
        <translation>Track %1</translation>
    </message>
    <message>
        <source>Liste der schnellsten Runden exportieren nach ...</source>
        <translation>Export list of fastest laps to ...</translation>
    </message>
    <message>
        <source>fastestLapList.csv</source>
        <translation>fastestLapList.csv</translation>
    </message>
    <message>
        <source>CSV-Datei (*.csv)</source>
        <translation>CSV file (*.csv)</translation>
    </message>
</context>
<context>
    <name>CKelmoRaceSettings</name>
    <message>
        <source>Renneinstellungen</source>
        <translation>Race settings</translation>
    </message>
    <message>
        <source>Start/Ende</source>
        <translation>Start/end</translation>
    </message>
    <message>
        <source>Tankfunktion</source>
        <translation>Fuel function</translation>
    </message>
    <message>
        <source>Datenerfassung</source>
        <translation>Data capture</translation>
    </message>
    <message>
        <source>&amp;Ok</source>
        <translation>&amp;Ok</translation>
    </message>
    <message>
        <source>&amp;Abbrechen</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>&amp;Standard laden</source>
        <translation>Load &amp;defaults</translation>
    </message>
    <message>
        <source>&amp;Exportiern</source>
        <translation>&amp;Export</translation>
    </message>
    <message>
        <source>&amp;Importieren</source>
        <translation>&amp;Import</translation>
    </message>
    <message>
        <source>Diese Einstellungen als Standardeinstellungen speichern</source>
        <translation>Save these settings as default settings</translation>
    </message>
    <message>
        <source>Renneinstellungen exportieren ...</source>
        <translation>Export race settings ...</translation>
    </message>
    <message>
        <source>Renneinstellungen (*.rsf)</source>
        <translation>Race settings (*.rsf)</translation>
    </message>
    <message>
        <source>Renneinstellungen importieren ...</source>
        <translation>Import race settings ...</translation>
    </message>
</context>
<context>
    <name>CKelmoSettings</name>
    <message>
        <source>Einstellungen</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>Rennstrecken</source>
        <translation>Raceways</translation>
    </message>
    <message>
        <source>Anzeige</source>
        <translation>Display</translation>
    </message>
    <message>
        <source>Töne</source>
        <translation>Sounds</translation>
    </message>
    <message>
        <source>Speichern</source>
        <translation>Storing</translation>
    </message>
    <message>
        <source>Netzwerk</source>
        <translation>Network</translation>
    </message>
    <message>
        <source>QR Code</source>
        <translation>QR Code</translation>
    </message>
    <message>
        <source>&amp;Ok</source>
        <translation>&amp;Ok</translation>
    </message>
    <message>
        <source>&amp;Abbrechen</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>Sound für neue Beste Runde wählen</source>
        <translation>Choose the sound of a new best lap</translation>
    </message>
    <message>
        <source>Sound für Drive Through wählen</source>
        <translation>Choose the sound of a drive-through</translation>
    </message>
    <message>
        <source>Sound für rotes Ampellicht wählen</source>
        <translation>Choose the sound of a red light</translation>
    </message>
    <message>
        <source>Sound für grünes Ampellicht wählen</source>
        <translation>Choose the sound of the green light</translation>
    </message>
    <message>
        <source>Sounds (*.wav)</source>
        <translation>Sounds (*.wav)</translation>
    </message>
    <message>
        <source>Verzeichnis wählen</source>
        <translation>Choose a directory</translation>
    </message>
    <message>
        <source>Vorhandene Strecken:</source>
        <translation>Raceways:</translation>
    </message>
    <message>
        <source>Die aktuell ausgewählte Strecke ist mit "x" markiert.</source>
        <translation>The raceway in use is marked with "x".</translation>
    </message>
    <message>
        <source>&amp;Neu</source>
        <translation>&amp;New</translation>
    </message>
    <message>
        <source>&amp;Bearbeiten</source>
        <translation>&amp;Edit</translation>
    </message>
    <message>
        <source>&amp;Löschen</source>
        <translation>&amp;Delete</translation>
    </message>
    <message>
        <source>Ben&amp;utzen</source>
        <translation>&amp;Use</translation>
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
        <source>Rennstrecke löschen</source>
        <translation>Delete raceway</translation>
    </message>
    <message>
        <source>Sind Sie sicher, dass Sie die Rennstrecke %1 löschen möchten?</source>
        <translation>Are you sure that you want to delete the raceway %1?</translation>
    </message>
    <message>
        <source>Fahrzeuge</source>
        <translation>Cars</translation>
    </message>
    <message>
        <source>Fahrer</source>
        <translation>Drivers</translation>
    </message>
    <message>
        <source>Vorhandene Fahrzeuge:</source>
        <translation>Cars:</translation>
    </message>
    <message>
        <source>&amp;Importieren</source>
        <translation>&amp;Import</translation>
    </message>
    <message>
        <source>&amp;Exportieren</source>
        <translation>E&amp;xport</translation>
    </message>
    <message>
        <source>QR &amp;Code</source>
        <translation>Q&amp;R code</translation>
    </message>
    <message>
        <source>&amp;QR Code Liste</source>
        <translation>&amp;QR code list</translation>
    </message>
    <message>
        <source>Vorhandene Fahrer:</source>
        <translation>Drivers:</translation>
    </message>
    <message>
        <source>CSV-Datei (*.csv)</source>
        <translation>CSV file (*.csv)</translation>
    </message>
    <message>
        <source>PDF-Datei (*.pdf)</source>
        <translation>PDF file (*.pdf)</translation>
    </message>
    <message>
        <source>Fahrzeug löschen</source>
        <translation>Delete car</translation>
    </message>
    <message>
        <source>Sind Sie sicher, dass Sie das Fahrzeug %1 löschen möchten?</source>
        <translation>Are you sure that you want to delete the car %1?</translation>
    </message>
    <message>
        <source>Datei mit Fahrzeugliste für Import wählen</source>
        <translation>Choose the file with the list of cars to import</translation>
    </message>
    <message>
        <source>Fahrzeugliste exportieren nach ...</source>
        <translation>Export the list of cars to ...</translation>
    </message>
    <message>
        <source>QR Code Liste für Fahrzeuge erstellen ...</source>
        <translation>Create the QR code list of cars ...</translation>
    </message>
    <message>
        <source>QR Code für Fahrzeug erstellen ...</source>
        <translation>Create the QR code of a car ...</translation>
    </message>
    <message>
        <source>Fahrer löschen</source>
        <translation>Delete driver</translation>
    </message>
    <message>
        <source>Sind Sie sicher, dass Sie den Fahrer %1 löschen möchten?</source>
        <translation>Are you sure that you want to delete the driver %1?</translation>
    </message>
    <message>
        <source>Datei mit Fahrerliste für Import wählen</source>
        <translation>Choose the file with the list of drivers to import</translation>
    </message>
    <message>
        <source>Fahrerliste exportieren nach ...</source>
        <translation>Export the list of drivers to ...</translation>
    </message>
    <message>
        <source>QR Code Liste für alle Fahrer erstellen ...</source>
        <translation>Create the QR code list of all drivers ...</translation>
    </message>
    <message>
        <source>QR Code für Fahrer erstellen ...</source>
        <translation>Create the QR code of a driver ...</translation>
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
    <name>CNetworkTab</name>
    <message>
        <source>Netzwerkanzeigerechner bei Programmende auf Host automatisch herunterfahren</source>
        <translation>Shut the display computers down when the host's program ends</translation>
    </message>
    <message>
        <source>Wartezeit vor herunterfahren des Remote Rechners:</source>
        <translation>Delay before a remote computer shuts down:</translation>
    </message>
    <message>
        <source>Netzwerkanzeigen stumm schalten</source>
        <translation>Mute the network displays</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Port:</translation>
    </message>
    <message>
        <source>Diese Einstellungen sind relevant wenn der Tornik seine Anzeige auf einen &lt;br&gt;zweiten Rechner im Netzwerk übertragen soll.&lt;br&gt;</source>
        <translation>These settings matter when Tornik shows its display &lt;br&gt;on a second computer of the network.&lt;br&gt;</translation>
    </message>
</context>
<context>
    <name>COpenPage</name>
    <message>
        <source>&lt;b&gt;Zustand "offen" eingeben&lt;/b&gt;</source>
        <translation>&lt;b&gt;Enter the state "open"&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Bitte versetzen Sie die Impulsfahrbahn und alle anderen Sensoren (z.B. Chaostaste falls vorhanden) in den Zustand "offen" und drücken Sie die Schaltfläche "Ermitteln".</source>
        <translation>Please bring the sensor track and all other sensors (e.g. the chaos button, if present) into the state "open" and press the button "Learn".</translation>
    </message>
    <message>
        <source>Zustand "offen":</source>
        <translation>State "open":</translation>
    </message>
</context>
<context>
    <name>CParallelPortForm</name>
    <message>
        <source>Data Register</source>
        <translation>Data Register</translation>
    </message>
    <message>
        <source>Status Register</source>
        <translation>Status Register</translation>
    </message>
    <message>
        <source>Control Register</source>
        <translation>Control Register</translation>
    </message>
    <message>
        <source>Data Register: Pin 2 bis Pin 9&lt;br&gt;Status Register: Pin 10 bis Pin 13 und Pin 15&lt;br&gt;Control Register: Pin 1, Pin 14, Pin 16 und Pin 17&lt;br&gt;Für Ausgänge (z.B. Startampel) wird immer das Data Register verwendet.</source>
        <translation>Data register: pin 2 to pin 9&lt;br&gt;Status register: pin 10 to pin 13 and pin 15&lt;br&gt;Control register: pin 1, pin 14, pin 16 and pin 17&lt;br&gt;Outputs (e.g. start lights) always use the data register.</translation>
    </message>
    <message>
        <source>Port Adresse:</source>
        <translation>Port address:</translation>
    </message>
    <message>
        <source>Register für Sensoren:</source>
        <translation>Register for sensors:</translation>
    </message>
    <message>
        <source>Register für Ausgänge:</source>
        <translation>Register for outputs:</translation>
    </message>
</context>
<context>
    <name>CPortOutputWidget</name>
    <message>
        <source>invers</source>
        <translation>inverted</translation>
    </message>
</context>
<context>
    <name>CPortStatusWidget</name>
    <message>
        <source>Ermitteln</source>
        <translation>Learn</translation>
    </message>
</context>
<context>
    <name>CPowerOffFeaturePage</name>
    <message>
        <source>&lt;b&gt;Portpin für "Bahnstromabschaltung" angeben&lt;/b&gt;</source>
        <translation>&lt;b&gt;Port pin of the "track power switch"&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Bitte wählen Sie für jede Spur den Anschluß über den die Bahnstromabschaltung gesteuert wird.</source>
        <translation>Please choose for each track the connection that switches its power.</translation>
    </message>
    <message>
        <source>Bahnstromabschaltung für Spur</source>
        <extracomment>followed by the number of the track</extracomment>
        <translation>Power switch of track</translation>
    </message>
</context>
<context>
    <name>CQrCodeGenerator</name>
    <message>
        <source>Fahrzeug</source>
        <translation>Car</translation>
    </message>
    <message>
        <source>QR Code</source>
        <translation>QR Code</translation>
    </message>
    <message>
        <source>Fahrer</source>
        <translation>Driver</translation>
    </message>
</context>
<context>
    <name>CQrCodeReaderDialog</name>
    <message>
        <source>Die konfigurierte Kamera konnte nicht gefunden werden.</source>
        <translation>The configured camera could not be found.</translation>
    </message>
    <message>
        <source>Auf die Kamera konnte nicht zugegriffen werden.</source>
        <translation>The camera could not be accessed.</translation>
    </message>
    <message>
        <source>Kamera Problem</source>
        <translation>Camera problem</translation>
    </message>
</context>
<context>
    <name>CQrCodeTab</name>
    <message>
        <source>QR Code Erkennung aktivieren</source>
        <translation>Activate the recognition of QR codes</translation>
    </message>
    <message>
        <source>Kamera:</source>
        <translation>Camera:</translation>
    </message>
    <message>
        <source>Für alle Fahrzeuge und Fahrer können QR Codes erzeugt und ausgedruckt werden. Eine Webcam liest sie ein, so dass Fahrer und Fahrzeuge an den Anzeigen der Spuren ohne Tastatur ausgewählt werden.</source>
        <translation>QR codes of all cars and drivers can be made and printed. A webcam reads them, so that drivers and cars are chosen at the displays of the tracks without a keyboard.</translation>
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
    <name>CRacewayWizard</name>
    <message>
        <source>Rennstrecken Wizard</source>
        <translation>Raceway Wizard</translation>
    </message>
</context>
<context>
    <name>CRwWizardDebounceTimePage</name>
    <message>
        <source>&lt;b&gt;Minimale Rundenzeit angeben&lt;/b&gt;</source>
        <translation>&lt;b&gt;Enter the minimum lap time&lt;/b&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;Bitte geben Sie die minimal mögliche Rundenzeit in ms an. Rundenzeiten die kleiner sind werden als Fehlmessung interpretiert und verworfen.&lt;/p&gt;&lt;p&gt;Der Wert sollte deutlich unter der bisherigen schnellsten Runde mit dem schnellsten Fahrzeug gewählt werden. Sind z.B. bisher bestenfalls Zeiten knapp über 6s gefahren worden, wären 5000ms ein guter Wert.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Please enter the shortest possible lap time in ms. Shorter lap times are taken as wrong measurements and dropped.&lt;/p&gt;&lt;p&gt;The value should be well below the fastest lap so far with the fastest car. If, for example, the best times so far are just above 6s, 5000ms would be a good value.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>%1 bis %2 ms</source>
        <translation>%1 to %2 ms</translation>
    </message>
    <message>
        <source>Minimale gültige Rundenzeit:</source>
        <translation>Minimum valid lap time:</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>ms</translation>
    </message>
</context>
<context>
    <name>CRwWizardEndSensorPage</name>
    <message>
        <source>&lt;b&gt;Rundenende Sensor Spur %1&lt;/b&gt;</source>
        <translation>&lt;b&gt;Lap end sensor of track %1&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Bitte aktivieren Sie jetzt den Sensor der das Rundenende für die Spur %1 erkennen soll und drücken Sie die Schaltfläche "Ermitteln".</source>
        <translation>Please activate the sensor now that shall detect the end of a lap on track %1 and press the button "Learn".</translation>
    </message>
    <message>
        <source>Zustand "Rundenende Spur %1 aktiviert":</source>
        <translation>State "lap end of track %1 active":</translation>
    </message>
    <message>
        <source>Bitte wählen Sie den Eingang an Ihrem Light &amp; Time AT2560 der das Rundenende für die Spur %1 erkennen soll.</source>
        <translation>Please choose the input of your Light &amp; Time AT2560 that shall detect the end of a lap on track %1.</translation>
    </message>
    <message>
        <source>Pin für Rundenende Spur %1:</source>
        <translation>Pin of the lap end of track %1:</translation>
    </message>
</context>
<context>
    <name>CRwWizardFuelFinishedSensorPage</name>
    <message>
        <source>&lt;b&gt;Endesensor Tankzone Spur %1&lt;/b&gt;</source>
        <translation>&lt;b&gt;End sensor of the fuel zone of track %1&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Bitte aktivieren Sie jetzt den Sensor der das Ende der Tankzone für die Spur %1 darstellt und drücken Sie die Schaltfläche "Ermitteln" oder geben Sie den hexadezimalen Wert der den Zustand "Tankzonen Endesensor Spur %1  aktiviert" repräsentiert in das Eingabefeld ein.</source>
        <translation>Please activate the sensor now that is the end of the fuel zone of track %1 and press the button "Learn", or enter the hexadecimal value of the state "end sensor of the fuel zone of track %1 active" into the field.</translation>
    </message>
    <message>
        <source>Zustand "Ende Tankzone Spur %1 aktiviert":</source>
        <translation>State "end of fuel zone of track %1 active":</translation>
    </message>
    <message>
        <source>Bitte wählen Sie den Eingang an Ihrem Light &amp; Time AT2560 der das Ende der Tankzone für die Spur %1 detektiert.</source>
        <translation>Please choose the input of your Light &amp; Time AT2560 that detects the end of the fuel zone of track %1.</translation>
    </message>
    <message>
        <source>Pin für Ende Tankzone Spur %1:</source>
        <translation>Pin of the end of the fuel zone of track %1:</translation>
    </message>
</context>
<context>
    <name>CRwWizardFuelSensorPage</name>
    <message>
        <source>&lt;b&gt;Tanksensor Spur %1&lt;/b&gt;</source>
        <translation>&lt;b&gt;Fuel sensor of track %1&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Bitte aktivieren Sie jetzt den Tanksensor für die Spur %1 und drücken Sie die Schaltfläche "Ermitteln" oder geben Sie den hexadezimalen Wert der den Zustand "Tanksensor Spur %1  aktiviert" repräsentiert in das Eingabefeld ein.</source>
        <translation>Please activate the fuel sensor of track %1 now and press the button "Learn", or enter the hexadecimal value of the state "fuel sensor of track %1 active" into the field.</translation>
    </message>
    <message>
        <source>Zustand "Tanksensor Spur %1 aktiviert":</source>
        <translation>State "fuel sensor of track %1 active":</translation>
    </message>
    <message>
        <source>Bitte wählen Sie den Eingang an Ihrem Light &amp; Time AT2560 an dem der Tanksensor für Spur %1 angeschlossen ist.</source>
        <translation>Please choose the input of your Light &amp; Time AT2560 to which the fuel sensor of track %1 is connected.</translation>
    </message>
    <message>
        <source>Pin für Tanksensor Spur %1:</source>
        <translation>Pin of the fuel sensor of track %1:</translation>
    </message>
</context>
<context>
    <name>CRwWizardLightsPage</name>
    <message>
        <source>&lt;b&gt;Portpins für "Externe Startampel" angeben&lt;/b&gt;</source>
        <translation>&lt;b&gt;Port pins of the "external start lights"&lt;/b&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;Bitte wählen Sie die jeweiligen Ausgänge um die Rotlichter und das Grünlicht anzusteuern. Die Rotlichter werden der Reihenfolge nach angesteuert, also Rotlicht 1 zuerst, dann Rotlicht 2 usw.&lt;/p&gt;&lt;p&gt;Bei weniger als 5 Rotlichtern an der externen Startampel müssen die vorderen Rotlichter auf "---" gestellt werden. Also z.B. falls die externe Startampel nur 4 Rotlichter besitzt, muß hier für Rotlicht 1 "---" gewählt werden.&lt;br&gt;Falls kein Grünlicht vorhanden ist, muß dieser ausgang ebenfalls auf "---" konfiguriert werden.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Please choose the outputs that switch the red lights and the green light. The red lights are switched in their order, red light 1 first, then red light 2 and so on.&lt;/p&gt;&lt;p&gt;With fewer than 5 red lights the first ones must be set to "---". For example, if the external start lights have only 4 red lights, "---" must be chosen for red light 1.&lt;br&gt;If there is no green light, its output must be set to "---", too.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Rotlicht</source>
        <extracomment>followed by the number of the lamp</extracomment>
        <translation>Red light</translation>
    </message>
    <message>
        <source>Grünlicht:</source>
        <translation>Green light:</translation>
    </message>
</context>
<context>
    <name>CRwWizardSector2SensorPage</name>
    <message>
        <source>&lt;b&gt;Sektor zwei Beginnsensor Spur %1&lt;/b&gt;</source>
        <translation>&lt;b&gt;Begin sensor of sector two, track %1&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Bitte aktivieren Sie jetzt den Sektorsensor der den Beginn des zweiten Sektors für die Spur %1 erkennen soll und drücken Sie die Schaltfläche "Ermitteln".</source>
        <translation>Please activate the sector sensor now that shall detect the begin of the second sector of track %1 and press the button "Learn".</translation>
    </message>
    <message>
        <source>Zustand "Sektor 2 Beginnsensor Spur %1 aktiviert":</source>
        <translation>State "begin of sector 2 of track %1 active":</translation>
    </message>
    <message>
        <source>Bitte wählen Sie den Eingang an Ihrem Light &amp; Time AT2560 für den Sektorsensor der den Beginn des zweiten Sektors für die Spur %1 detektiert.</source>
        <translation>Please choose the input of your Light &amp; Time AT2560 for the sector sensor that detects the begin of the second sector of track %1.</translation>
    </message>
    <message>
        <source>Pin für Sektor 2 Beginnsensor Spur %1:</source>
        <translation>Pin of the begin of sector 2 of track %1:</translation>
    </message>
</context>
<context>
    <name>CRwWizardSector3SensorPage</name>
    <message>
        <source>&lt;b&gt;Sektor drei Beginnsensor Spur %1&lt;/b&gt;</source>
        <translation>&lt;b&gt;Begin sensor of sector three, track %1&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Bitte aktivieren Sie jetzt den Sektorsensor der den Beginn des dritten Sektors für die Spur %1 erkennen soll und drücken Sie die Schaltfläche "Ermitteln".</source>
        <translation>Please activate the sector sensor now that shall detect the begin of the third sector of track %1 and press the button "Learn".</translation>
    </message>
    <message>
        <source>Zustand "Sektor 3 Beginnsensor Spur %1 aktiviert":</source>
        <translation>State "begin of sector 3 of track %1 active":</translation>
    </message>
    <message>
        <source>Bitte wählen Sie den Eingang an Ihrem Light &amp; Time AT2560 für den Sektorsensor der den Beginn des dritten Sektors für die Spur %1 detektiert.</source>
        <translation>Please choose the input of your Light &amp; Time AT2560 for the sector sensor that detects the begin of the third sector of track %1.</translation>
    </message>
    <message>
        <source>Pin für Sektor 3 Beginnsensor Spur %1:</source>
        <translation>Pin of the begin of sector 3 of track %1:</translation>
    </message>
</context>
<context>
    <name>CRwWizardSlotPage</name>
    <message>
        <source>&lt;b&gt;Einstellungen Spur %1&lt;/b&gt;</source>
        <translation>&lt;b&gt;Settings of track %1&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Bitte aktivieren Sie jetzt die Impulsfahrbahn für die Spur %1 und drücken Sie die Schaltfläche "Ermitteln" oder geben Sie den hexadezimalen Wert der den Zustand "Spur %1 aktiviert" repräsentiert in das Eingabefeld ein. Geben Sie bitte auch die Spurlänge in cm an (0 = keine Längenangabe).</source>
        <translation>Please activate the sensor of track %1 now and press the button "Learn", or enter the hexadecimal value of the state "track %1 active" into the field. Please enter the length of the track in cm, too (0 = no length).</translation>
    </message>
    <message>
        <source>Zustand "Spur %1 aktiviert":</source>
        <translation>State "track %1 active":</translation>
    </message>
    <message>
        <source>Bitte wählen Sie den Eingang an Ihrem Light &amp; Time AT2560 an dem der Sensor für Spur %1 angeschlossen ist. Geben Sie bitte auch die Spurlänge in cm an (0 = keine Längenangabe).</source>
        <translation>Please choose the input of your Light &amp; Time AT2560 to which the sensor of track %1 is connected. Please enter the length of the track in cm, too (0 = no length).</translation>
    </message>
    <message>
        <source>Pin für Spur %1:</source>
        <translation>Pin of track %1:</translation>
    </message>
    <message>
        <source>Spurlänge in cm:</source>
        <translation>Length of the track in cm:</translation>
    </message>
</context>
<context>
    <name>CSignalControlGroup</name>
    <message>
        <source>Signalsteuerung</source>
        <translation>Signals</translation>
    </message>
    <message>
        <source>Ampel auf rot schalten bei Rennende</source>
        <translation>Turn the lights red at the end of the race</translation>
    </message>
    <message>
        <source>Bahnstrom angeschaltet lassen bei Rennende</source>
        <translation>Leave the track power on at the end of the race</translation>
    </message>
</context>
<context>
    <name>CSoundTab</name>
    <message>
        <source>Neue Bestzeit:</source>
        <translation>New best time:</translation>
    </message>
    <message>
        <source>Drive Through:</source>
        <translation>Drive-through:</translation>
    </message>
    <message>
        <source>Rotes Ampellicht:</source>
        <translation>Red light:</translation>
    </message>
    <message>
        <source>Grünes Ampellicht:</source>
        <translation>Green light:</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Browse</translation>
    </message>
    <message>
        <source>Sprachausgabe nutzen</source>
        <translation>Use voice output</translation>
    </message>
    <message>
        <source>Rundenanzahl ansagen</source>
        <translation>Announce the number of laps</translation>
    </message>
    <message>
        <source>Rundenzeit ansagen</source>
        <translation>Announce the lap time</translation>
    </message>
    <message>
        <source>Nur neue Bestzeiten ansagen</source>
        <translation>Announce new best times only</translation>
    </message>
</context>
<context>
    <name>CStartConditionGroup</name>
    <message>
        <source>Startbedingung</source>
        <translation>Start condition</translation>
    </message>
    <message>
        <source>Keine</source>
        <translation>None</translation>
    </message>
    <message>
        <source>Start in </source>
        <translation>Start in </translation>
    </message>
    <message>
        <source>Minuten</source>
        <translation>minutes</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>ms warten bevor die Ampel von Rot auf Grün umschaltet</source>
        <translation>ms wait before the lights turn from red to green</translation>
    </message>
</context>
<context>
    <name>CStartPage</name>
    <message>
        <source>&lt;b&gt;Name und Anzahl der Slots&lt;/b&gt;</source>
        <translation>&lt;b&gt;Name and number of slots&lt;/b&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;Bitte den Namen der Rennstrecke (maximal 32 Zeichen), die Anzahl der Slots (1-8) und den Maßstab (optional, 0 = kein Maßstab) eingeben.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Please enter the name of the raceway (at most 32 characters), the number of slots (1-8) and the scale (optional, 0 = no scale).&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Name der Rennstrecke:</source>
        <translation>Name of the raceway:</translation>
    </message>
    <message>
        <source>Anzahl der Slots:</source>
        <translation>Number of slots:</translation>
    </message>
    <message>
        <source>Maßstab (optional): &lt;b&gt;1/&lt;/b&gt;</source>
        <translation>Scale (optional): &lt;b&gt;1/&lt;/b&gt;</translation>
    </message>
</context>
<context>
    <name>CStorageTab</name>
    <message>
        <source>Wählen Sie die standard Aktion beim speichern eines Rennens:</source>
        <translation>Choose what storing a race does by default:</translation>
    </message>
    <message>
        <source>beim speichern immer nach Dateiname und Zielordner fragen</source>
        <translation>always ask for file name and folder</translation>
    </message>
    <message>
        <source>immer in folgenden Ordner speichern:</source>
        <translation>always store in this folder:</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Browse</translation>
    </message>
    <message>
        <source>Zeitformat beim speichern</source>
        <translation>Time format of stored times</translation>
    </message>
    <message>
        <source>Zeiten im Format mm:ss:zzz speichern (z.B. 0:08:531)</source>
        <translation>Store times in the format mm:ss:zzz (e.g. 0:08:531)</translation>
    </message>
    <message>
        <source>Zeiten im Format s,zzz speichern (z.B. 8,531)</source>
        <translation>Store times in the format s,zzz (e.g. 8,531)</translation>
    </message>
    <message>
        <source>Zeiten im Format mm:ss,zzz speichern (z.B. 0:08,531)</source>
        <translation>Store times in the format mm:ss,zzz (e.g. 0:08,531)</translation>
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
    <name>CWinningConditionGroup</name>
    <message>
        <source>Siegbedingung</source>
        <translation>Winning condition</translation>
    </message>
    <message>
        <source>die meisten gefahrenen Runden</source>
        <translation>most laps driven</translation>
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
        <source>eine Rundenzeit möglichst nahe der Zielzeit</source>
        <translation>a lap time as close as possible to the target time</translation>
    </message>
    <message>
        <source>die Durchschnittszeit möglichst nahe der Zielzeit</source>
        <translation>an average time as close as possible to the target time</translation>
    </message>
    <message>
        <source>die konsistentesten Rundenzeiten, ignoriere die schlechtesten </source>
        <translation>most constant lap times, ignore the worst </translation>
    </message>
    <message>
        <source>Runden</source>
        <translation>laps</translation>
    </message>
    <message>
        <source>Zielzeit verwenden</source>
        <translation>use the target time</translation>
    </message>
    <message>
        <source>verwendete Zielzeit (im Format mm:ss:zzz): </source>
        <translation>target time (format mm:ss:zzz): </translation>
    </message>
    <message>
        <source>Minuten</source>
        <translation>minutes</translation>
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
    <name>ComplexWizard</name>
    <message>
        <source>Abbrechen</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>&lt; &amp;Zurück</source>
        <translation>&lt; &amp;Back</translation>
    </message>
    <message>
        <source>Weiter &gt;</source>
        <translation>Next &gt;</translation>
    </message>
    <message>
        <source>&amp;Fertigstellen</source>
        <translation>&amp;Finish</translation>
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
