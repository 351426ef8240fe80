#ifndef TORNIK_RESULTS_CSVTIMEFORMAT_H
#define TORNIK_RESULTS_CSVTIMEFORMAT_H

#include <QString>

/**
 * @param storageFormat a CSettings::StorageCsvTimeFormat
 * @return how a CSV file writes a lap time, as QTime::toString() has it.
 */
QString csvTimeFormat(int storageFormat);

#endif
