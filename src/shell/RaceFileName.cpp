#include "shell/RaceFileName.h"

#include <QDateTime>
#include <QDir>

QString raceFileName(const QDateTime& moment, const QStringList& driverNames)
{
    QString names = driverNames.join('_');
    // A name such as "A/B" would lead into a folder that isn't there, and the race would be lost.
    names.replace('/', '-').replace('\\', '-');
    return moment.toString("yyyyMMdd_hhmmss") + '_' + names + ".csv";
}

QString pathInFolder(const QString& folder, const QString& fileName)
{
    QString path = QDir::toNativeSeparators(folder);
    if (!path.isEmpty() && !path.endsWith(QDir::separator()))
        path += QDir::separator();
    return path + fileName;
}
