#include "sound/CSoundHandler.h"

#include "sound/EffectFile.h"
#include "sound/SoundFiles.h"
#include "sound/SoundLog.h"

#include <QSound>

namespace {

void replace(std::unique_ptr<QSound>& sound, const QString& file)
{
    sound.reset();
    const QString path = soundFilePath(file);
    if (!isEffectFile(path)) {
        qCDebug(soundLog) << "no effect in" << path;
        return;
    }
    sound = std::make_unique<QSound>(path);
    // A short silent start loads the file.
    sound->setLoops(0);
    sound->play();
    sound->stop();
    sound->setLoops(1);
}

void play(const std::unique_ptr<QSound>& sound)
{
    if (sound)
        sound->play();
}

} // namespace

CSoundHandler::CSoundHandler(QObject* parent) : QObject(parent) {}

CSoundHandler::~CSoundHandler() = default;

void CSoundHandler::setNewBestLapSound(const QString& file)
{
    replace(m_newBestLap, file);
}

void CSoundHandler::setDriveThroughSound(const QString& file)
{
    replace(m_driveThrough, file);
}

void CSoundHandler::setRedLightSound(const QString& file)
{
    replace(m_redLight, file);
}

void CSoundHandler::setGreenLightSound(const QString& file)
{
    replace(m_greenLight, file);
}

void CSoundHandler::setFuelOnReserveSound(const QString& file)
{
    replace(m_fuelOnReserve, file);
}

void CSoundHandler::playNewBestLap()
{
    play(m_newBestLap);
}

void CSoundHandler::playDriveThrough()
{
    play(m_driveThrough);
}

void CSoundHandler::playRedLightSound()
{
    play(m_redLight);
}

void CSoundHandler::playGreenLightSound()
{
    play(m_greenLight);
}

void CSoundHandler::playFuelOnReserve()
{
    play(m_fuelOnReserve);
}
