#include "sound/CSampleStore.h"

#include "sound/CWaveReader.h"
#include "sound/SoundLog.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

SoundClip CSampleStore::read(const QString& path)
{
    const QFileInfo info(path);
    if (!info.isFile())
        return nullptr; // and nothing that would make the reader wait, like a pipe
    const QString key =
        QStringLiteral("%1|%2|%3").arg(path).arg(info.lastModified().toMSecsSinceEpoch()).arg(info.size());
    if (SoundClip known = m_clips.value(key).lock())
        return known;
    QFile file(path);
    SoundClip clip = file.open(QIODevice::ReadOnly) ? CWaveReader::read(file) : nullptr;
    if (!clip)
        qCDebug(soundLog) << "no sound in" << path;
    m_clips.insert(key, clip);
    return clip;
}
