#include "wizard/ComplexWizard.h"

#include "wizard/WizardPage.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

ComplexWizard::ComplexWizard(QWidget* parent, const QString& styleSheet)
    : QDialog(parent),
      m_cancelButton(new QPushButton(tr("Abbrechen"), this)),
      m_backButton(new QPushButton(tr("< &Zurück"), this)),
      m_nextButton(new QPushButton(tr("Weiter >"), this)),
      m_finishButton(new QPushButton(tr("&Fertigstellen"), this)),
      m_buttonLayout(new QHBoxLayout),
      m_layout(new QVBoxLayout(this))
{
    setStyleSheet(styleSheet);
    createButtons();
    m_layout->addStretch();
    m_layout->addLayout(m_buttonLayout);
}

void ComplexWizard::createButtons()
{
    m_cancelButton->setObjectName("cancelButton");
    m_backButton->setObjectName("backButton");
    m_nextButton->setObjectName("nextButton");
    m_finishButton->setObjectName("finishButton");
    m_buttonLayout->addStretch();
    for (QPushButton* button : {m_cancelButton, m_backButton, m_nextButton, m_finishButton})
        m_buttonLayout->addWidget(button);
    connect(m_cancelButton, &QPushButton::clicked, this, &ComplexWizard::reject);
    connect(m_backButton, &QPushButton::clicked, this, &ComplexWizard::backButtonClicked);
    connect(m_nextButton, &QPushButton::clicked, this, &ComplexWizard::nextButtonClicked);
    connect(m_finishButton, &QPushButton::clicked, this, &ComplexWizard::accept);
}

WizardPage* ComplexWizard::currentPage() const
{
    return m_history.isEmpty() ? nullptr : m_history.last();
}

void ComplexWizard::setFirstPage(WizardPage* page)
{
    page->resetPage();
    if (!m_history.isEmpty())
        leavePage(m_history.last());
    m_history = {page};
    switchPage(nullptr);
}

void ComplexWizard::leavePage(WizardPage* page)
{
    page->hide();
    m_layout->removeWidget(page);
    disconnect(page, &WizardPage::completeStateChanged, this, &ComplexWizard::completeStateChanged);
}

void ComplexWizard::switchPage(WizardPage* oldPage)
{
    if (oldPage)
        leavePage(oldPage);
    WizardPage* page = m_history.last();
    m_layout->insertWidget(0, page);
    page->show();
    page->setFocus(Qt::TabFocusReason); // selects what can be overwritten
    connect(page, &WizardPage::completeStateChanged, this, &ComplexWizard::completeStateChanged);
    m_backButton->setEnabled(m_history.size() > 1);
    const bool isLast = page->isLastPage();
    (isLast ? m_finishButton : m_nextButton)->setDefault(true);
    (isLast ? m_nextButton : m_finishButton)->setEnabled(false);
    completeStateChanged();
    growToPage();
}

void ComplexWizard::completeStateChanged()
{
    const WizardPage* page = m_history.last();
    (page->isLastPage() ? m_finishButton : m_nextButton)->setEnabled(page->isComplete());
}

void ComplexWizard::nextButtonClicked()
{
    WizardPage* oldPage = m_history.last();
    WizardPage* page = oldPage->nextPage();
    if (!page)
        return;
    page->resetPage();
    m_history.append(page);
    switchPage(oldPage);
}

void ComplexWizard::backButtonClicked()
{
    WizardPage* oldPage = m_history.takeLast();
    oldPage->resetPage();
    switchPage(oldPage);
}

void ComplexWizard::growToPage()
{
    if (!isVisible())
        return;
    // Texts that wrap don't make a window grow by themselves.
    m_layout->activate();
    const int needed = m_layout->hasHeightForWidth() ? m_layout->totalHeightForWidth(width())
                                                     : m_layout->totalSizeHint().height();
    resize(width(), qMax(height(), needed));
}

void ComplexWizard::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    growToPage();
    if (WizardPage* page = currentPage())
        page->setFocus(Qt::TabFocusReason); // selects what can be overwritten
}
