#ifndef TORNIK_SOUND_SOUNDLOG_H
#define TORNIK_SOUND_SOUNDLOG_H

#include <QLoggingCategory>

/** Debug lines of the sound subsystem: "tornik.sound". */
Q_DECLARE_LOGGING_CATEGORY(soundLog)

#endif
