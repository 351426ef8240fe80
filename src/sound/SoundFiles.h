#ifndef TORNIK_SOUND_SOUNDFILES_H
#define TORNIK_SOUND_SOUNDFILES_H

#include <QString>
#include <QStringList>

/**
 * Where a sound that is named without a directory may lie, in the order of the search: the working
 * directory, `../share/tornik/sounds` seen from the executable (the installed program), `sounds`
 * beside the executable (the program in its build tree).
 */
QStringList soundDirectories();

/**
 * Finds a sound file.
 *
 * @param name a file name; with a directory in it the directories are not searched
 * @param directories where to look for a name without a directory, the first hit counts
 * @return an absolute path. A file that is found nowhere is looked for in the working directory in
 *         vain; an empty name stays empty.
 */
QString soundFilePath(const QString& name, const QStringList& directories = soundDirectories());

#endif
