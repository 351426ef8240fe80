#ifndef TORNIK_SHELL_RACEFILENAME_H
#define TORNIK_SHELL_RACEFILENAME_H

#include <QStringList>

class QDateTime;

/** @return the name proposed for the CSV file of a race, such as 20260131_181502_Anna_Ben.csv. */
QString raceFileName(const QDateTime& moment, const QStringList& driverNames);

/** @return the path of a file in a folder, in the separators of the system; an empty folder is the working
 * one. */
QString pathInFolder(const QString& folder, const QString& fileName);

#endif
