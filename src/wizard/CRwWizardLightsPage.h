#ifndef TORNIK_WIZARD_CRWWIZARDLIGHTSPAGE_H
#define TORNIK_WIZARD_CRWWIZARDLIGHTSPAGE_H

#include "wizard/COutputPage.h"

/** Asks for the lamps of an external start light. */
class CRwWizardLightsPage : public COutputPage
{
    Q_OBJECT

public:
    explicit CRwWizardLightsPage(CRacewayWizard* wizard);
};

#endif
