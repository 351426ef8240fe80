#ifndef TORNIK_WIZARD_CRWWIZARDDEBOUNCETIMEPAGE_H
#define TORNIK_WIZARD_CRWWIZARDDEBOUNCETIMEPAGE_H

#include "wizard/CRacewayWizardPage.h"

class QLineEdit;

/** Asks for the shortest valid lap. */
class CRwWizardDebounceTimePage : public CRacewayWizardPage
{
    Q_OBJECT

public:
    explicit CRwWizardDebounceTimePage(CRacewayWizard* wizard);

    /** @return milliseconds. */
    int minTime() const;
    void setMinTime(int milliseconds);

    bool isComplete() const override;

protected:
    void clear() override;

private:
    QLineEdit* m_timeEdit;
};

#endif
