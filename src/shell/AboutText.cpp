#include "shell/AboutText.h"

#include "shell/Version.h"

QString AboutText::title()
{
    return tr("Über den Tornik");
}

QString AboutText::html()
{
    return tr("<h1>Über den Tornik</h1><hr>") + tr("<p><b>Version:</b> %1<br>").arg(TornikVersion) +
           tr("<b>Autor:</b> %1<br>").arg("The Tornik developers") +
           tr("<b>Weitere Informationen:</b> die Datei \"README.md\", die dem Programm beiliegt</p>") +
           tr("<p>Die ausführliche Anleitung ist die Datei \"Bedienungsanleitung.pdf\", die mit dem Programm "
              "geliefert wird.</p>") +
           tr("<p>Diese Software beruht auf dem Qt Framework in der Version 5.5.0: %1</p>")
               .arg(link("https://www.qt.io/")) +
           tr("<p>Für den Parallelport verwendet sie den I/O-Port-Treiber inpout32.dll in seiner "
              "64-Bit-Version: "
              "%1, nach dem ursprünglichen Treiber von %2</p>")
               .arg(link("http://www.highrez.co.uk/downloads/inpout32/"), link("http://logix4u.net/"));
}

QString AboutText::link(const QString& address)
{
    return QStringLiteral("<a style=\"color: #FF9933\" href=\"%1\">%1</a>").arg(address);
}
