#ifndef TORNIK_TESTS_SUPPORT_RECORDINGSOUNDS_H
#define TORNIK_TESTS_SUPPORT_RECORDINGSOUNDS_H

#include "sound/CSoundHandler.h"

#include <QMap>
#include <QStringList>

/** Writes down what would be heard and which files are loaded. */
class CRecordingSounds : public CSoundHandler
{
public:
    void setNewBestLapSound(const QString& file) override { load("best", file); }
    void setDriveThroughSound(const QString& file) override { load("drive", file); }
    void setRedLightSound(const QString& file) override { load("red", file); }
    void setGreenLightSound(const QString& file) override { load("green", file); }
    void setFuelOnReserveSound(const QString& file) override { load("reserve", file); }
    void playNewBestLap() override { play("best"); }
    void playDriveThrough() override { play("drive"); }
    void playRedLightSound() override { play("red"); }
    void playGreenLightSound() override { play("green"); }
    void playFuelOnReserve() override { play("reserve"); }

    QStringList files;
    QStringList played; ///< effects
    QStringList heard;  ///< files of the effects

private:
    void load(const QString& effect, const QString& file)
    {
        files.append(file);
        m_fileOf[effect] = file;
    }
    void play(const QString& effect)
    {
        played.append(effect);
        heard.append(m_fileOf.value(effect));
    }

    QMap<QString, QString> m_fileOf;
};

#endif
