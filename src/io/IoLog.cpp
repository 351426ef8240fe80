#include "io/IoLog.h"

Q_LOGGING_CATEGORY(ioLog, "tornik.io")
