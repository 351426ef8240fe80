#include "sound/SoundLog.h"

Q_LOGGING_CATEGORY(soundLog, "tornik.sound")
