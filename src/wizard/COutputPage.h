#ifndef TORNIK_WIZARD_COUTPUTPAGE_H
#define TORNIK_WIZARD_COUTPUTPAGE_H

#include "wizard/CRacewayWizardPage.h"

#include <QVector>

class CPortOutputWidget;

/** Asks for outputs, one below the other; those that are shown are stored on the way forward. */
class COutputPage : public CRacewayWizardPage
{
    Q_OBJECT

public:
    using CRacewayWizardPage::CRacewayWizardPage;

    void setIoInterface(CRacewayIo** io) override;
    WizardPage* nextPage() override;

protected:
    void addOutput(int portId, const QString& labelText);
    /** @param count how many of them, from the first on, the raceway has */
    void showOutputs(int count);
    void alignOutputs();

private:
    QVector<CPortOutputWidget*> m_outputs;
    int m_shown = 0;
};

#endif
