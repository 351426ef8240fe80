#ifndef TORNIK_WIZARD_CRWWIZARDSLOTPAGE_H
#define TORNIK_WIZARD_CRWWIZARDSLOTPAGE_H

#include "wizard/CTrackSensorPage.h"

class QLineEdit;

/** Learns the lap sensor of a track and asks for its length. */
class CRwWizardSlotPage : public CTrackSensorPage
{
    Q_OBJECT

public:
    /** @param track from 0 */
    CRwWizardSlotPage(CRacewayWizard* wizard, int track);

    /** @return centimetres; 0 for no length given. */
    int length() const;
    void setLength(int length);

protected:
    void clear() override;
    void stateWidgetMade() override;

private:
    QLineEdit* m_lengthEdit;
};

#endif
