#ifndef TORNIK_SHELL_CSETTINGS_H
#define TORNIK_SHELL_CSETTINGS_H

#include <QString>
#include <QStringList>

class QDataStream;

/**
 * Every preference of the user that is no rule of a race: sounds, display, storing, network, codes.
 *
 * One live instance is owned by the start object and handed on by pointer. Nothing is validated in
 * the record.
 */
class CSettings
{
public:
    enum SpeedDisplayType
    {
        KilometresPerHour = 0,
        MetresPerSecond = 1,
        MilesPerHour = 2
    };
    enum DisplaySize
    {
        VeryLarge = 1,
        Large = 2,
        Medium = 3,
        Small = 4
    };
    enum StorageApproach
    {
        AskForFileName = 0,
        UseDefaultPath = 1
    };
    enum StorageCsvTimeFormat
    {
        MinutesColonMilliseconds = 0,
        SecondsComma = 1,
        MinutesComma = 2
    };

    static constexpr int Tracks = 8;
    static constexpr quint16 DefaultPort = 47624;
    static constexpr int DefaultShutdownWaitTime = 15; ///< seconds

    CSettings();

    /** Reads every key from the settings store; a missing key takes its default. */
    void read();
    /** Writes every key to the settings store. */
    void write() const;

    QString newBestLapSound() const { return m_newBestLapSound; }
    void setNewBestLapSound(const QString& file) { m_newBestLapSound = file; }
    QString driveThroughSound() const { return m_driveThroughSound; }
    void setDriveThroughSound(const QString& file) { m_driveThroughSound = file; }
    QString redLightSound() const { return m_redLightSound; }
    void setRedLightSound(const QString& file) { m_redLightSound = file; }
    QString greenLightSound() const { return m_greenLightSound; }
    void setGreenLightSound(const QString& file) { m_greenLightSound = file; }

    bool displayShowLaps() const { return m_displayShowLaps; }
    void setDisplayShowLaps(bool on) { m_displayShowLaps = on; }
    bool displayShowLapTime() const { return m_displayShowLapTime; }
    void setDisplayShowLapTime(bool on) { m_displayShowLapTime = on; }
    bool displayShowBestLapTime() const { return m_displayShowBestLapTime; }
    void setDisplayShowBestLapTime(bool on) { m_displayShowBestLapTime = on; }
    bool displayShowStatus() const { return m_displayShowStatus; }
    void setDisplayShowStatus(bool on) { m_displayShowStatus = on; }
    bool displayShowAverageLapTime() const { return m_displayShowAverageLapTime; }
    void setDisplayShowAverageLapTime(bool on) { m_displayShowAverageLapTime = on; }
    bool displayShowSectorTimes() const { return m_displayShowSectorTimes; }
    void setDisplayShowSectorTimes(bool on) { m_displayShowSectorTimes = on; }
    bool displayShowIntermediateTimes() const { return m_displayShowIntermediateTimes; }
    void setDisplayShowIntermediateTimes(bool on) { m_displayShowIntermediateTimes = on; }
    bool displaySpeed() const { return m_displaySpeed; }
    void setDisplaySpeed(bool on) { m_displaySpeed = on; }
    /** @return a SpeedDisplayType. */
    int speedDisplayType() const { return m_speedDisplayType; }
    void setSpeedDisplayType(int type) { m_speedDisplayType = type; }
    bool displayFuel() const { return m_displayFuel; }
    void setDisplayFuel(bool on) { m_displayFuel = on; }

    bool soundEnhanced() const { return m_soundEnhanced; }
    void setSoundEnhanced(bool on) { m_soundEnhanced = on; }
    bool soundVoiceOutputLaps() const { return m_soundVoiceOutputLaps; }
    void setSoundVoiceOutputLaps(bool on) { m_soundVoiceOutputLaps = on; }
    bool soundVoiceOutputLapTime() const { return m_soundVoiceOutputLapTime; }
    void setSoundVoiceOutputLapTime(bool on) { m_soundVoiceOutputLapTime = on; }
    bool soundVoiceOutputBestLapTime() const { return m_soundVoiceOutputBestLapTime; }
    void setSoundVoiceOutputBestLapTime(bool on) { m_soundVoiceOutputBestLapTime = on; }

    /** @param track from 0; outside 0 to 7 gives an empty name */
    QString trackColor(int track) const { return m_trackColors.value(track); }
    void setTrackColor(int track, const QString& name);
    QString colorBestLapAndStatus() const { return m_colorBestLapAndStatus; }
    void setColorBestLapAndStatus(const QString& name) { m_colorBestLapAndStatus = name; }

    /** @return a StorageApproach. */
    int storageApproach() const { return m_storageApproach; }
    void setStorageApproach(int approach) { m_storageApproach = approach; }
    QString storageDefaultPath() const { return m_storageDefaultPath; }
    void setStorageDefaultPath(const QString& path) { m_storageDefaultPath = path; }
    /** @return a StorageCsvTimeFormat. */
    int storageCsvTimeFormat() const { return m_storageCsvTimeFormat; }
    void setStorageCsvTimeFormat(int format) { m_storageCsvTimeFormat = format; }

    /** @return a DisplaySize; may lie outside it. */
    int displaySize() const { return m_displaySize; }
    void setDisplaySize(int size) { m_displaySize = size; }

    quint16 port() const { return m_port; }
    void setPort(quint16 port) { m_port = port; }
    bool sendShutdownToClients() const { return m_sendShutdownToClients; }
    void setSendShutdownToClients(bool on) { m_sendShutdownToClients = on; }
    /** @return seconds. */
    int shutdownWaitTime() const { return m_shutdownWaitTime; }
    void setShutdownWaitTime(int seconds) { m_shutdownWaitTime = seconds; }
    bool clientsMuted() const { return m_clientsMuted; }
    void setClientsMuted(bool on) { m_clientsMuted = on; }

    bool qrCodeHandlingEnabled() const { return m_qrCodeHandlingEnabled; }
    void setQrCodeHandlingEnabled(bool on) { m_qrCodeHandlingEnabled = on; }
    QString qrCodeHandlingCamera() const { return m_qrCodeHandlingCamera; }
    void setQrCodeHandlingCamera(const QString& camera) { m_qrCodeHandlingCamera = camera; }

    friend QDataStream& operator<<(QDataStream& stream, const CSettings& settings);
    friend QDataStream& operator>>(QDataStream& stream, CSettings& settings);

private:
    template <typename Settings, typename Visitor>
    static void visitStoredKeys(Settings& settings, Visitor& visit);
    template <typename Settings, typename Visitor>
    static void visitStreamFields(Settings& settings, const Visitor& visit);

    QString m_newBestLapSound;
    QString m_driveThroughSound;
    QString m_redLightSound;
    QString m_greenLightSound;
    bool m_displayShowLaps = true;
    bool m_displayShowLapTime = true;
    bool m_displayShowBestLapTime = true;
    bool m_displayShowStatus = true;
    bool m_displayShowAverageLapTime = false;
    bool m_displayShowSectorTimes = false;
    bool m_displayShowIntermediateTimes = false;
    bool m_displaySpeed = true;
    int m_speedDisplayType = KilometresPerHour;
    bool m_displayFuel = true;
    bool m_soundEnhanced = true;
    bool m_soundVoiceOutputLaps = true;
    bool m_soundVoiceOutputLapTime = true;
    bool m_soundVoiceOutputBestLapTime = true;
    QStringList m_trackColors;
    QString m_colorBestLapAndStatus;
    int m_storageApproach = AskForFileName;
    QString m_storageDefaultPath;
    int m_storageCsvTimeFormat = MinutesColonMilliseconds;
    int m_displaySize = Large;
    quint16 m_port = DefaultPort;
    bool m_sendShutdownToClients = false;
    int m_shutdownWaitTime = DefaultShutdownWaitTime;
    bool m_clientsMuted = true;
    bool m_qrCodeHandlingEnabled = false;
    QString m_qrCodeHandlingCamera;
};

/** Stream form for the display protocol; the order is that of the definition. */
QDataStream& operator<<(QDataStream& stream, const CSettings& settings);
QDataStream& operator>>(QDataStream& stream, CSettings& settings);

#endif
