#ifndef TORNIK_WIZARD_CCHAOSBUTTONPAGE_H
#define TORNIK_WIZARD_CCHAOSBUTTONPAGE_H

#include "wizard/CSensorPage.h"

/** Learns the chaos button. */
class CChaosButtonPage : public CSensorPage
{
    Q_OBJECT

public:
    explicit CChaosButtonPage(CRacewayWizard* wizard);
};

#endif
