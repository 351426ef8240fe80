#ifndef TORNIK_SHELL_CTRACKTEXTS_H
#define TORNIK_SHELL_CTRACKTEXTS_H

#include <QCoreApplication>
#include <QString>

class QTime;

/** How the figures of a track are written on its panel. */
class CTrackTexts
{
    Q_DECLARE_TR_FUNCTIONS(CTrackTexts)

public:
    /** @return three characters at least, four at most. */
    static QString laps(int laps);
    static QString time(const QTime& time);
    /** @param status a CRaceMemberStatus; an unknown one gives "---" */
    static QString status(int status);
    /**
     * @param speed in the unit of the type
     * @param type a CSettings::SpeedDisplayType; an unknown one is taken for km/h
     * @return the speed with its unit and the decimal mark of the program's language.
     */
    static QString speed(double speed, int type);
};

#endif
