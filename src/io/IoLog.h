#ifndef TORNIK_IO_IOLOG_H
#define TORNIK_IO_IOLOG_H

#include <QLoggingCategory>

/** The debug lines of every hardware interface: category "tornik.io". */
Q_DECLARE_LOGGING_CATEGORY(ioLog)

#endif
