#include "sound/SoundFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

QStringList soundDirectories()
{
    const QDir program(QCoreApplication::applicationDirPath());
    return {QDir::currentPath(), QDir::cleanPath(program.filePath(QStringLiteral("../share/tornik/sounds"))),
            program.filePath(QStringLiteral("sounds"))};
}

QString soundFilePath(const QString& name, const QStringList& directories)
{
    if (name.isEmpty())
        return QString();
    if (!name.contains(QLatin1Char('/'))) {
        for (const QString& directory : directories) {
            const QFileInfo candidate(QDir(directory), name);
            if (candidate.isFile())
                return candidate.absoluteFilePath();
        }
    }
    return QFileInfo(name).absoluteFilePath();
}
