#ifndef TORNIK_TESTS_SUPPORT_RECORDINGSOUNDS_H
#define TORNIK_TESTS_SUPPORT_RECORDINGSOUNDS_H

#include "sound/CSoundHandler.h"

#include <QStringList>

/** Writes down what would be heard and which files are loaded. */
class CRecordingSounds : public CSoundHandler
{
public:
    void setNewBestLapSound(const QString& file) override { files.append(file); }
    void setDriveThroughSound(const QString& file) override { files.append(file); }
    void setRedLightSound(const QString& file) override { files.append(file); }
    void setGreenLightSound(const QString& file) override { files.append(file); }
    void setFuelOnReserveSound(const QString& file) override { files.append(file); }
    void playNewBestLap() override { played.append("best"); }
    void playDriveThrough() override { played.append("drive"); }
    void playRedLightSound() override { played.append("red"); }
    void playGreenLightSound() override { played.append("green"); }
    void playFuelOnReserve() override { played.append("reserve"); }

    QStringList files;
    QStringList played;
};

#endif
