// The part of CTrackDisplay that applies the settings: what is shown, how large, in which words.

#include "race/CRaceMember.h"
#include "shell/CQrReaderButton.h"
#include "shell/CRichComboBox.h"
#include "shell/CRichLabel.h"
#include "shell/CRichProgressBar.h"
#include "shell/CSettings.h"
#include "shell/CTrackDisplay.h"
#include "shell/CTrackTexts.h"
#include "shell/CTrackTier.h"
#include "sound/CSoundOutput.h"

#include <QVBoxLayout>

namespace {

constexpr int LongLapsPercent = 80; ///< size of a lap count of four characters

void applyTier(CRichLabel* label, const CLabelTier& tier)
{
    label->setWidth(tier.width);
    label->setHeight(tier.height);
    label->setPointSize(tier.pointSize);
}

/** @return the pattern with each "#" replaced by a digit, once for each digit. */
QStringList withEveryDigit(const QString& pattern)
{
    QStringList texts;
    for (char digit = '0'; digit <= '9'; ++digit)
        texts.append(QString(pattern).replace(QLatin1Char('#'), QLatin1Char(digit)));
    return texts;
}

QStringList allStatusWords()
{
    QStringList words;
    for (int status = int(CRaceMemberStatus::None); status <= int(CRaceMemberStatus::Paused); ++status)
        words.append(CTrackTexts::status(status));
    return words;
}

int fittingStretch(const CRichLabel* label, const QStringList& texts, int percent = 100)
{
    int stretch = 100;
    for (const QString& text : texts)
        stretch = qMin(stretch, label->fittingStretch(text, percent));
    return stretch;
}

} // namespace

void CTrackDisplay::setSettings(CSettings* settings)
{
    m_settings = settings;
    showLabels();
    showSections();
    m_speed->setVisible(m_settings->displaySpeed());
    if (isTrackPanel())
        applyToTrackPanel();
    else
        applyToLegend();
    m_mainLayout->update();
    update();
}

void CTrackDisplay::showLabels()
{
    m_lapCount->setVisible(m_settings->displayShowLaps());
    m_lastLap->setVisible(m_settings->displayShowLapTime());
    m_bestLap->setVisible(m_settings->displayShowBestLapTime());
    m_status->setVisible(m_settings->displayShowStatus());
    m_averageLap->setVisible(m_settings->displayShowAverageLapTime());
}

void CTrackDisplay::showSections()
{
    int section = 0;
    for (CRichLabel* label : {m_section1, m_section2, m_section3}) {
        if (!m_settings->displayShowSectorTimes())
            label->hide();
        else if (m_sections > section)
            label->show();
        ++section;
    }
}

void CTrackDisplay::applyToTrackPanel()
{
    const QString commonColor = m_settings->colorBestLapAndStatus();
    m_bestLap->setColor(commonColor);
    m_status->setColor(commonColor);
    m_fuelBar->setVisible(m_settings->displayFuel());
    m_fuelBar->setRedColorName(commonColor);
    setSpeed(0.0);
    if (m_settings->soundEnhanced())
        loadVoice();
    applyLabelTier(trackPanelTier(m_settings->displaySize()));
    applyTrackTier(trackTier(m_settings->displaySize()));
    fitFigures();
    scaleLapCount();
    m_driverQrButton->setVisible(m_settings->qrCodeHandlingEnabled());
    m_carQrButton->setVisible(m_settings->qrCodeHandlingEnabled());
}

void CTrackDisplay::applyToLegend()
{
    const bool intermediate = m_settings->displayShowIntermediateTimes();
    m_section1->setText(inBrackets(intermediate ? tr("INT1") : tr("SEC1")));
    m_section2->setText(inBrackets(intermediate ? tr("INT2") : tr("SEC2")));
    m_section3->setText(inBrackets(intermediate ? tr("INT3") : tr("SEC3")));
    m_fuelLabel->setVisible(m_settings->displayFuel());
    m_driverLabel->show();
    m_carLabel->show();
    applyLabelTier(legendPanelTier(m_settings->displaySize()));
    for (CRichLabel* label : labels())
        label->setStretch(label->fittingStretch(label->text()));
}

void CTrackDisplay::loadVoice()
{
    m_soundOutput->setSample1File(m_settings->driveThroughSound());
    m_soundOutput->setSample2File(m_settings->newBestLapSound());
    // The third sample is a spare and deliberately the file of the second one.
    m_soundOutput->setSample3File(m_settings->newBestLapSound());
}

void CTrackDisplay::applyLabelTier(const CPanelTier& tier)
{
    applyTier(m_lapCount, tier.lapCount);
    for (CRichLabel* label : {m_lastLap, m_bestLap, m_averageLap, m_section1, m_section2, m_section3})
        applyTier(label, tier.time);
    applyTier(m_status, tier.status);
    applyTier(m_speed, tier.speed);
    applyTier(m_fuelLabel, tier.fuel);
    applyTier(m_driverLabel, tier.participant);
    applyTier(m_carLabel, tier.participant);
}

void CTrackDisplay::applyTrackTier(const CTrackTier& tier)
{
    for (CRichComboBox* box : {m_driverBox, m_carBox}) {
        box->setMinimumHeight(tier.boxMinimumHeight);
        box->setMaximumWidth(tier.boxMaximumWidth);
        box->setPointSize(tier.boxPointSize);
    }
    m_fuelBar->setMaxHeight(tier.barMaximumHeight);
    m_fuelBar->setMaximumWidth(tier.barMaximumWidth);
    m_fuelBar->setFontSize(tier.barPointSize);
    m_fuelBar->setSize(tier.barDivisor);
}

/** Narrows the letters where the font would lose a part of a usual text, for good: digits never move. */
void CTrackDisplay::fitFigures()
{
    m_lapsStretch = fittingStretch(m_lapCount, withEveryDigit(QStringLiteral("###")));
    m_longLapsStretch = fittingStretch(m_lapCount, withEveryDigit(QStringLiteral("####")), LongLapsPercent);
    const int times = fittingStretch(m_lastLap, withEveryDigit(QStringLiteral("##:##:###")));
    for (CRichLabel* label : {m_lastLap, m_bestLap, m_averageLap, m_section1, m_section2, m_section3})
        label->setStretch(times);
    m_status->setStretch(fittingStretch(m_status, allStatusWords()));
    const int unit = m_settings->speedDisplayType();
    QString speed = CTrackTexts::speed(unit == CSettings::MetresPerSecond ? 99.99 : 999.9, unit);
    m_speed->setStretch(fittingStretch(m_speed, withEveryDigit(speed.replace('9', '#'))));
}

void CTrackDisplay::scaleLapCount()
{
    if (m_lapCount->text().size() < 4) {
        m_lapCount->restoreFont();
        m_lapCount->setStretch(m_lapsStretch);
    } else {
        m_lapCount->scaleFont(LongLapsPercent);
        m_lapCount->setStretch(m_longLapsStretch);
    }
}
