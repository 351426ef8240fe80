#ifndef TORNIK_SOUND_CSOUNDHANDLER_H
#define TORNIK_SOUND_CSOUNDHANDLER_H

#include <QObject>
#include <QString>

#include <memory>

class QSound;

/**
 * The five short effects. One for the whole program, owned by the main dialog; main thread only.
 *
 * Each setter takes a file name (see soundFilePath() for one without a directory) and loads the
 * file at once, so that the first play has no delay. A file that can't be read is silent. An effect
 * whose file was never set must not be played; it is silent, too.
 */
class CSoundHandler : public QObject
{
    Q_OBJECT

public:
    explicit CSoundHandler(QObject* parent = nullptr);
    ~CSoundHandler() override;

    void setNewBestLapSound(const QString& file);
    void setDriveThroughSound(const QString& file);
    void setRedLightSound(const QString& file);
    void setGreenLightSound(const QString& file);
    void setFuelOnReserveSound(const QString& file);

public Q_SLOTS:
    void playNewBestLap();
    void playDriveThrough();
    void playRedLightSound();
    void playGreenLightSound();
    /** A spare: nothing in the program calls it. */
    void playFuelOnReserve();

private:
    std::unique_ptr<QSound> m_newBestLap;
    std::unique_ptr<QSound> m_driveThrough;
    std::unique_ptr<QSound> m_redLight;
    std::unique_ptr<QSound> m_greenLight;
    std::unique_ptr<QSound> m_fuelOnReserve;
};

#endif
