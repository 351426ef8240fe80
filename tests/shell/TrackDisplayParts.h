#ifndef TORNIK_TESTS_SHELL_TRACKDISPLAYPARTS_H
#define TORNIK_TESTS_SHELL_TRACKDISPLAYPARTS_H

#include "shell/CQrReaderButton.h"
#include "shell/CRichComboBox.h"
#include "shell/CRichLabel.h"
#include "shell/CRichProgressBar.h"
#include "shell/CSettings.h"
#include "shell/CTrackDisplay.h"

/** The parts of a panel by their names, and settings that show them all. */
namespace TrackDisplayParts {

inline const QStringList LabelNames{"lapCount",   "lastLap",   "bestLap",     "status",
                                    "averageLap", "section1",  "section2",    "section3",
                                    "speed",      "fuelLabel", "driverLabel", "carLabel"};
inline const QStringList TimeNames{"lastLap", "bestLap", "averageLap", "section1", "section2", "section3"};

inline CRichLabel* label(const CTrackDisplay& panel, const QString& name)
{
    auto* found = panel.findChild<CRichLabel*>(name);
    if (!found)
        qFatal("no label %s", qPrintable(name));
    return found;
}

inline QString text(const CTrackDisplay& panel, const QString& name)
{
    return label(panel, name)->text();
}

inline CRichComboBox* box(const CTrackDisplay& panel, const QString& name)
{
    return panel.findChild<CRichComboBox*>(name);
}

inline CQrReaderButton* button(const CTrackDisplay& panel, const QString& name)
{
    return panel.findChild<CQrReaderButton*>(name);
}

inline CRichProgressBar* fuelBar(const CTrackDisplay& panel)
{
    return panel.findChild<CRichProgressBar*>(QStringLiteral("fuelBar"));
}

/** Everything on. */
inline CSettings fullSettings(int size)
{
    CSettings settings;
    settings.setDisplayShowLaps(true);
    settings.setDisplayShowLapTime(true);
    settings.setDisplayShowBestLapTime(true);
    settings.setDisplayShowStatus(true);
    settings.setDisplayShowAverageLapTime(true);
    settings.setDisplayShowSectorTimes(true);
    settings.setDisplaySpeed(true);
    settings.setDisplayFuel(true);
    settings.setSoundEnhanced(false);
    settings.setQrCodeHandlingEnabled(true);
    settings.setDisplaySize(size);
    return settings;
}

} // namespace TrackDisplayParts

#endif
