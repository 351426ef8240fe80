#include "wizard/CRacewayWizardPage.h"

#include "io/CRacewayIo.h"
#include "wizard/CRacewayWizard.h"

#include <QLabel>
#include <QVBoxLayout>

CRacewayWizardPage::CRacewayWizardPage(CRacewayWizard* wizard, const RacewayWizardPath::Step& step)
    : WizardPage(wizard),
      m_wizard(wizard),
      m_step(step),
      m_title(new QLabel(this)),
      m_explanation(new QLabel(this)),
      m_rows(new QVBoxLayout)
{
    m_title->setObjectName("title");
    m_explanation->setObjectName("explanation");
    m_explanation->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_title);
    layout->addWidget(m_explanation);
    layout->addLayout(m_rows);
    layout->addStretch();
}

void CRacewayWizardPage::resetPage()
{
    if (!m_wizard->isEditing())
        clear();
}

WizardPage* CRacewayWizardPage::nextPage()
{
    return m_wizard->pageAfter(m_step);
}

void CRacewayWizardPage::setIoInterface(CRacewayIo** /*io*/) {}

void CRacewayWizardPage::setTitle(const QString& title)
{
    m_title->setText(title);
}

void CRacewayWizardPage::setExplanation(const QString& text)
{
    m_explanation->setText(text);
}

bool CRacewayWizardPage::hasInputs() const
{
    return io() && io()->interfaceType() == CRacewayIo::LtAt2560;
}
