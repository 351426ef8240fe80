#ifndef TORNIK_WIZARD_CRACEWAYWIZARDPAGE_H
#define TORNIK_WIZARD_CRACEWAYWIZARDPAGE_H

#include "wizard/RacewayWizardPath.h"
#include "wizard/WizardPage.h"

class CRacewayIo;
class CRacewayWizard;
class QBoxLayout;
class QLabel;

/** A page of the raceway wizard: a title and an explanation above its controls. Owned by the wizard. */
class CRacewayWizardPage : public WizardPage
{
    Q_OBJECT

public:
    /** @param step its place on the way through the wizard */
    CRacewayWizardPage(CRacewayWizard* wizard, const RacewayWizardPath::Step& step);

    /** Does nothing while a stored raceway is edited, so that its values survive; else clear(). */
    void resetPage() final;
    /** @return the page that the answers lead to; it knows the interface by then. */
    WizardPage* nextPage() override;
    /**
     * Called when this page is about to be entered forwards.
     * @param io where the wizard keeps its interface, which may change or be null; not owned
     */
    virtual void setIoInterface(CRacewayIo** io);

protected:
    /** Back to the values of a new raceway. */
    virtual void clear() {}

    void setTitle(const QString& title);
    void setExplanation(const QString& text);
    /** @return where the controls of the page go, one row below the other. */
    QBoxLayout* rows() const { return m_rows; }

    CRacewayWizard* wizard() const { return m_wizard; }
    /** @return the wizard's interface; null as long as there is none. */
    CRacewayIo* io() const { return m_io ? *m_io : nullptr; }
    void keepIoInterface(CRacewayIo** io) { m_io = io; }
    /** @return whether sensors are inputs of an AT2560 rather than states of a port. */
    bool hasInputs() const;

private:
    CRacewayWizard* m_wizard;
    CRacewayIo** m_io = nullptr;
    RacewayWizardPath::Step m_step;
    QLabel* m_title;
    QLabel* m_explanation;
    QBoxLayout* m_rows;
};

#endif
