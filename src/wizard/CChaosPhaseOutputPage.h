#ifndef TORNIK_WIZARD_CCHAOSPHASEOUTPUTPAGE_H
#define TORNIK_WIZARD_CCHAOSPHASEOUTPUTPAGE_H

#include "wizard/COutputPage.h"

/** Asks for the output that tells of a chaos phase. */
class CChaosPhaseOutputPage : public COutputPage
{
    Q_OBJECT

public:
    explicit CChaosPhaseOutputPage(CRacewayWizard* wizard);
};

#endif
