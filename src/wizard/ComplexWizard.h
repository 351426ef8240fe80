#ifndef TORNIK_WIZARD_COMPLEXWIZARD_H
#define TORNIK_WIZARD_COMPLEXWIZARD_H

#include <QDialog>
#include <QList>

class QHBoxLayout;
class QPushButton;
class QVBoxLayout;
class WizardPage;

/**
 * A dialog that leads through pages. It knows no order: it asks each page for the next one and
 * remembers those that were visited. The pages are not owned.
 */
class ComplexWizard : public QDialog
{
    Q_OBJECT

public:
    /** @param styleSheet set before there is a page: what is shown earlier can keep its parent's style */
    explicit ComplexWizard(QWidget* parent = nullptr, const QString& styleSheet = QString());

    /** Begins anew on this page, whatever was visited before. */
    void setFirstPage(WizardPage* page);
    /** Shows the last page of the history in place of another one, which may be null. */
    void switchPage(WizardPage* oldPage);

protected:
    /** @return the page that is shown; null before setFirstPage(). */
    WizardPage* currentPage() const;
    /** Makes the window high enough for the page that is shown; never lower. */
    void growToPage();

    void showEvent(QShowEvent* event) override;

private Q_SLOTS:
    void backButtonClicked();
    void nextButtonClicked();
    void completeStateChanged();

private:
    void createButtons();
    void leavePage(WizardPage* page);

    QList<WizardPage*> m_history; ///< the last one is the current page
    QPushButton* m_cancelButton;
    QPushButton* m_backButton;
    QPushButton* m_nextButton;
    QPushButton* m_finishButton;
    QHBoxLayout* m_buttonLayout;
    QVBoxLayout* m_layout; ///< the page above the buttons
};

#endif
