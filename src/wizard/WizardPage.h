#ifndef TORNIK_WIZARD_WIZARDPAGE_H
#define TORNIK_WIZARD_WIZARDPAGE_H

#include <QWidget>

/** One page of a ComplexWizard, hidden until its turn. Each page says which page follows it. */
class WizardPage : public QWidget
{
    Q_OBJECT

public:
    explicit WizardPage(QWidget* parent = nullptr);

    /** Called when the page is entered forwards and when it is left backwards. */
    virtual void resetPage() {}
    /**
     * Called once on each way forward: here a page stores what it knows.
     * @return the page that follows, not owned; null for none
     */
    virtual WizardPage* nextPage() { return nullptr; }
    /** @return whether the wizard can be finished on this page. */
    virtual bool isLastPage() const { return false; }
    /** @return whether the user may go on; completeStateChanged() tells of a change. */
    virtual bool isComplete() const { return true; }

Q_SIGNALS:
    void completeStateChanged();
};

#endif
