#ifndef TORNIK_SOUND_CSAMPLESTORE_H
#define TORNIK_SOUND_CSAMPLESTORE_H

#include "sound/SoundClip.h"

#include <QHash>
#include <QString>

#include <memory>

/**
 * Reads sound files and gives the same clip again as long as somebody holds it: eight players with
 * three samples each need only the different ones. One thread only.
 */
class CSampleStore
{
public:
    /** @return null for a file that can't be read; a file that has changed is read again. */
    SoundClip read(const QString& path);

private:
    QHash<QString, std::weak_ptr<const QVector<qint16>>> m_clips;
};

#endif
