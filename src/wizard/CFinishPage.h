#ifndef TORNIK_WIZARD_CFINISHPAGE_H
#define TORNIK_WIZARD_CFINISHPAGE_H

#include "wizard/CRacewayWizardPage.h"

/** Says that everything is known. */
class CFinishPage : public CRacewayWizardPage
{
    Q_OBJECT

public:
    explicit CFinishPage(CRacewayWizard* wizard);

    WizardPage* nextPage() override { return nullptr; }
    bool isLastPage() const override { return true; }
};

#endif
