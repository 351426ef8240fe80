#ifndef TORNIK_WIZARD_CPOWEROFFFEATUREPAGE_H
#define TORNIK_WIZARD_CPOWEROFFFEATUREPAGE_H

#include "wizard/COutputPage.h"

/** Asks for the output that switches the power of each track. */
class CPowerOffFeaturePage : public COutputPage
{
    Q_OBJECT

public:
    explicit CPowerOffFeaturePage(CRacewayWizard* wizard);

    void setIoInterface(CRacewayIo** io) override;

protected:
    void clear() override;
};

#endif
