#include "shell/CSettings.h"

#include <QDataStream>
#include <QSettings>

namespace {

const QString DefaultNewBestLapSound = QStringLiteral("newBestLap.wav");
const QString DefaultDriveThroughSound = QStringLiteral("driveThrough.wav");
const QString DefaultRedLightSound = QStringLiteral("redLight.wav");
const QString DefaultGreenLightSound = QStringLiteral("greenLight.wav");
const QString DefaultTrackColor = QStringLiteral("#FFC80A");
const QString DefaultColorBestLapAndStatus = QStringLiteral("#FF3214");

/** The store of the application, whatever names the running program has. */
class Store : public QSettings
{
public:
    Store()
        : QSettings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Tornik"),
                    QStringLiteral("Tornik"))
    {
    }
};

/** Enters a group of the store for as long as it lives. */
class Group
{
public:
    Group(QSettings& store, const char* name) : m_store(store)
    {
        m_store.beginGroup(QString::fromLatin1(name));
    }
    ~Group() { m_store.endGroup(); }
    Q_DISABLE_COPY(Group)

private:
    QSettings& m_store;
};

class KeyReader
{
public:
    explicit KeyReader(QSettings& store) : m_store(store) {}

    QSettings& store() { return m_store; }
    template <typename Value>
    void operator()(const QString& key, Value& value, const QVariant& fallback)
    {
        value = m_store.value(key, fallback).template value<Value>();
    }

private:
    QSettings& m_store;
};

class KeyWriter
{
public:
    explicit KeyWriter(QSettings& store) : m_store(store) {}

    QSettings& store() { return m_store; }
    template <typename Value>
    void operator()(const QString& key, const Value& value, const QVariant&)
    {
        m_store.setValue(key, value);
    }

private:
    QSettings& m_store;
};

} // namespace

CSettings::CSettings()
    : m_newBestLapSound(DefaultNewBestLapSound),
      m_driveThroughSound(DefaultDriveThroughSound),
      m_redLightSound(DefaultRedLightSound),
      m_greenLightSound(DefaultGreenLightSound),
      m_colorBestLapAndStatus(DefaultColorBestLapAndStatus)
{
    for (int track = 0; track < Tracks; ++track)
        m_trackColors.append(DefaultTrackColor);
}

void CSettings::setTrackColor(int track, const QString& name)
{
    if (track >= 0 && track < Tracks)
        m_trackColors[track] = name;
}

/**
 * Shows every stored field with its key and the default of a missing key. The defaults differ on
 * purpose from those of a fresh record in the speed, the fuel bar and the voice.
 */
template <typename Settings, typename Visitor>
void CSettings::visitStoredKeys(Settings& settings, Visitor& visit)
{
    {
        Group group(visit.store(), "sound");
        visit("/NewBestLapSound", settings.m_newBestLapSound, DefaultNewBestLapSound);
        visit("/DriveThroughSound", settings.m_driveThroughSound, DefaultDriveThroughSound);
        visit("/RedLightSound", settings.m_redLightSound, DefaultRedLightSound);
        visit("/GreenLightSound", settings.m_greenLightSound, DefaultGreenLightSound);
        visit("/SoundEnhanced", settings.m_soundEnhanced, false);
        visit("/SoundVoiceOutputLaps", settings.m_soundVoiceOutputLaps, false);
        visit("/SoundVoiceOutputLapTime", settings.m_soundVoiceOutputLapTime, false);
        visit("/SoundVoiceOutputBestLapTime", settings.m_soundVoiceOutputBestLapTime, false);
    }
    {
        Group group(visit.store(), "display");
        visit("/DisplayShowLaps", settings.m_displayShowLaps, true);
        visit("/DisplayShowLapTime", settings.m_displayShowLapTime, true);
        visit("/DisplayShowBestLapTime", settings.m_displayShowBestLapTime, true);
        visit("/DisplayShowStatus", settings.m_displayShowStatus, true);
        visit("/DisplayShowAverageLapTime", settings.m_displayShowAverageLapTime, false);
        visit("/DisplayShowSectorTimes", settings.m_displayShowSectorTimes, false);
        visit("/DisplayShowIntermediateTimes", settings.m_displayShowIntermediateTimes, false);
        visit("/DisplaySpeed", settings.m_displaySpeed, false);
        visit("/SpeedDisplayType", settings.m_speedDisplayType, int(KilometresPerHour));
        visit("/DisplayFuel", settings.m_displayFuel, false);
        for (int track = 0; track < Tracks; ++track)
            visit(QStringLiteral("/ColorTrack%1").arg(track + 1), settings.m_trackColors[track],
                  DefaultTrackColor);
        visit("/ColorBestLapAndStatus", settings.m_colorBestLapAndStatus, DefaultColorBestLapAndStatus);
        visit("/DisplaySize", settings.m_displaySize, int(Large));
    }
    {
        Group group(visit.store(), "storage");
        visit("/StorageApproach", settings.m_storageApproach, int(AskForFileName));
        visit("/StorageDefaultPath", settings.m_storageDefaultPath, QString());
        visit("/StorageCsvTimeFormat", settings.m_storageCsvTimeFormat, int(MinutesColonMilliseconds));
    }
    {
        Group group(visit.store(), "network");
        visit("/Port", settings.m_port, DefaultPort);
        visit("/SendShutdownToClients", settings.m_sendShutdownToClients, false);
        visit("/ShutdownWaitTime", settings.m_shutdownWaitTime, DefaultShutdownWaitTime);
        visit("/ClientsMuted", settings.m_clientsMuted, true);
    }
    {
        Group group(visit.store(), "qr");
        visit("/qrCodeHandlingEnabled", settings.m_qrCodeHandlingEnabled, false);
        visit("/qrCodeHandlingCamera", settings.m_qrCodeHandlingCamera, QString());
    }
}

void CSettings::read()
{
    Store store;
    KeyReader reader(store);
    visitStoredKeys(*this, reader);
}

void CSettings::write() const
{
    Store store;
    KeyWriter writer(store);
    visitStoredKeys(*this, writer);
}

/** The order of the stream form; the late place of the status colour and of the codes is part of it. */
template <typename Settings, typename Visitor>
void CSettings::visitStreamFields(Settings& settings, const Visitor& visit)
{
    visit(settings.m_newBestLapSound);
    visit(settings.m_driveThroughSound);
    visit(settings.m_redLightSound);
    visit(settings.m_greenLightSound);
    visit(settings.m_displayShowLaps);
    visit(settings.m_displayShowLapTime);
    visit(settings.m_displayShowBestLapTime);
    visit(settings.m_displayShowStatus);
    visit(settings.m_displayShowAverageLapTime);
    visit(settings.m_displayShowSectorTimes);
    visit(settings.m_displayShowIntermediateTimes);
    visit(settings.m_displaySpeed);
    visit(settings.m_speedDisplayType);
    visit(settings.m_displayFuel);
    visit(settings.m_soundEnhanced);
    visit(settings.m_soundVoiceOutputLaps);
    visit(settings.m_soundVoiceOutputLapTime);
    visit(settings.m_soundVoiceOutputBestLapTime);
    for (auto& color : settings.m_trackColors)
        visit(color);
    visit(settings.m_storageApproach);
    visit(settings.m_storageDefaultPath);
    visit(settings.m_storageCsvTimeFormat);
    visit(settings.m_displaySize);
    visit(settings.m_port);
    visit(settings.m_sendShutdownToClients);
    visit(settings.m_shutdownWaitTime);
    visit(settings.m_clientsMuted);
    visit(settings.m_colorBestLapAndStatus);
    visit(settings.m_qrCodeHandlingEnabled);
    visit(settings.m_qrCodeHandlingCamera);
}

QDataStream& operator<<(QDataStream& stream, const CSettings& settings)
{
    CSettings::visitStreamFields(settings, [&stream](const auto& field) { stream << field; });
    return stream;
}

QDataStream& operator>>(QDataStream& stream, CSettings& settings)
{
    CSettings::visitStreamFields(settings, [&stream](auto& field) { stream >> field; });
    return stream;
}
