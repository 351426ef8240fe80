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
 * file at once, so that the first play has no delay. A file that can't be read, or isn't whole, is
 * silent. An effect whose file was never set must not be played; it is silent, too.
 *
 * The operations are virtual so that a test can put a recorder in this one's place.
 */
class CSoundHandler : public QObject
{
    Q_OBJECT

public:
    explicit CSoundHandler(QObject* parent = nullptr);
    ~CSoundHandler() override;

    virtual void setNewBestLapSound(const QString& file);
    virtual void setDriveThroughSound(const QString& file);
    virtual void setRedLightSound(const QString& file);
    virtual void setGreenLightSound(const QString& file);
    virtual void setFuelOnReserveSound(const QString& file);

public Q_SLOTS:
    virtual void playNewBestLap();
    virtual void playDriveThrough();
    virtual void playRedLightSound();
    virtual void playGreenLightSound();
    /** A spare: nothing in the program calls it. */
    virtual void playFuelOnReserve();

private:
    std::unique_ptr<QSound> m_newBestLap;
    std::unique_ptr<QSound> m_driveThrough;
    std::unique_ptr<QSound> m_redLight;
    std::unique_ptr<QSound> m_greenLight;
    std::unique_ptr<QSound> m_fuelOnReserve;
};

#endif
