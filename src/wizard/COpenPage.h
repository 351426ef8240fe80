#ifndef TORNIK_WIZARD_COPENPAGE_H
#define TORNIK_WIZARD_COPENPAGE_H

#include "wizard/CSensorPage.h"

/** Learns the state of the port with every sensor open. */
class COpenPage : public CSensorPage
{
    Q_OBJECT

public:
    explicit COpenPage(CRacewayWizard* wizard);
};

#endif
