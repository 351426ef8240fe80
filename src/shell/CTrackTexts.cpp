#include "shell/CTrackTexts.h"

#include "race/CRaceMember.h"
#include "shell/CSettings.h"

#include <QLocale>
#include <QTime>

namespace {

constexpr int MostLapDigits = 4;

QString decimalText(double value, int digits)
{
    // The program speaks English or German, the language of its sources.
    const bool english = QLocale().language() == QLocale::English;
    QLocale locale(english ? QLocale::English : QLocale::German);
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale.toString(value, 'f', digits);
}

} // namespace

QString CTrackTexts::laps(int laps)
{
    QString text = QString::number(laps);
    if (text.size() == 1)
        text.prepend(QStringLiteral("00"));
    else if (text.size() == 2)
        text.prepend(laps >= 0 ? QLatin1Char('0') : QLatin1Char(' '));
    text.truncate(MostLapDigits);
    return text;
}

QString CTrackTexts::time(const QTime& time)
{
    return time.toString(QStringLiteral("mm:ss:zzz"));
}

QString CTrackTexts::status(int status)
{
    switch (CRaceMemberStatus(status)) {
    case CRaceMemberStatus::Waiting:
        return tr("warten");
    case CRaceMemberStatus::Starting:
        return tr("starten");
    case CRaceMemberStatus::Running:
        return tr("läuft");
    case CRaceMemberStatus::FalseStart:
        return tr("frühstart");
    case CRaceMemberStatus::Finished:
        return tr("beendet");
    case CRaceMemberStatus::Winner:
        return tr("sieger");
    case CRaceMemberStatus::Paused:
        return tr("pause");
    default:
        return QStringLiteral("---");
    }
}

QString CTrackTexts::speed(double speed, int type)
{
    switch (type) {
    case CSettings::MetresPerSecond:
        return decimalText(speed, 2) + QStringLiteral(" m/s");
    case CSettings::MilesPerHour:
        return decimalText(speed, 1) + QStringLiteral(" mph");
    default:
        return decimalText(speed, 1) + QStringLiteral(" km/h");
    }
}
