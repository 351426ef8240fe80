#include "wizard/COutputPage.h"

#include "wizard/CPortOutputWidget.h"

#include <QBoxLayout>

void COutputPage::addOutput(int portId, const QString& labelText)
{
    auto* output = new CPortOutputWidget(portId, labelText, this);
    if (m_outputs.isEmpty())
        setFocusProxy(output);
    rows()->addWidget(output);
    m_outputs.append(output);
    m_shown = m_outputs.size();
}

void COutputPage::alignOutputs()
{
    int width = 0;
    for (const CPortOutputWidget* output : m_outputs)
        width = qMax(width, output->labelWidth());
    for (CPortOutputWidget* output : m_outputs)
        output->setLabelWidth(width);
}

void COutputPage::showOutputs(int count)
{
    m_shown = count;
    for (int i = 0; i < m_outputs.size(); ++i)
        m_outputs.at(i)->setVisible(i < m_shown);
}

void COutputPage::setIoInterface(CRacewayIo** io)
{
    keepIoInterface(io);
    for (CPortOutputWidget* output : m_outputs)
        output->fillForInterface(io);
    alignOutputs();
}

WizardPage* COutputPage::nextPage()
{
    for (int i = 0; i < m_shown; ++i)
        m_outputs.at(i)->store(io());
    return CRacewayWizardPage::nextPage();
}
