#include "wizard/CSensorPage.h"

#include "io/CRacewayIo.h"
#include "wizard/CInputPinWidget.h"
#include "wizard/CPortStatusWidget.h"
#include "wizard/CRacewayWizard.h"

#include <QBoxLayout>
#include <QShowEvent>

SensorTexts SensorTexts::ofTrack(int number) const
{
    return {title.arg(number), portText.arg(number), portLabel.arg(number), inputText.arg(number),
            inputLabel.arg(number)};
}

CSensorPage::CSensorPage(CRacewayWizard* wizard, const RacewayWizardPath::Step& step, int portId,
                         const SensorTexts& texts)
    : CRacewayWizardPage(wizard, step), m_portId(portId), m_texts(texts)
{
    setTitle(m_texts.title);
}

void CSensorPage::setIoInterface(CRacewayIo** io)
{
    keepIoInterface(io);
    if (!m_stateWidget || m_showsInputs != hasInputs())
        makeStateWidget();
    showTexts();
    showState();
}

void CSensorPage::makeStateWidget()
{
    delete m_stateWidget;
    m_showsInputs = hasInputs();
    if (m_showsInputs)
        m_stateWidget = new CInputPinWidget(this);
    else
        m_stateWidget = new CPortStatusWidget(this);
    rows()->insertWidget(0, m_stateWidget);
    const QList<QWidget*> controls = m_stateWidget->controls();
    for (int i = 1; i < controls.size(); ++i)
        setTabOrder(controls.at(i - 1), controls.at(i));
    setFocusProxy(controls.first());
    connect(m_stateWidget, &CPortStatusWidgetBase::clicked, this, &CSensorPage::vScanPort);
    connect(m_stateWidget, &CPortStatusWidgetBase::valueChanged, this, &CSensorPage::storeState);
    stateWidgetMade();
}

void CSensorPage::showTexts()
{
    setExplanation(m_showsInputs ? m_texts.inputText : m_texts.portText);
    m_stateWidget->setLabelText(m_showsInputs ? m_texts.inputLabel : m_texts.portLabel);
}

void CSensorPage::showState()
{
    if (io() && m_stateWidget)
        m_stateWidget->setValue(quint32(io()->portState(m_portId)));
}

void CSensorPage::storeState()
{
    if (io())
        io()->setPortState(m_portId, int(m_stateWidget->value()), false);
}

void CSensorPage::vScanPort()
{
    if (!io())
        return;
    const int open = io()->portState(PortId::Open);
    prepareScan();
    const int captured = io()->capturePortState(m_portId);
    const int state = withOutputsAtRest(captured, open);
    if (state != captured)
        io()->setPortState(m_portId, state, false);
    m_stateWidget->setValue(quint32(state));
}

/**
 * A lamp that happens to be lit is no part of a sensor's state: the sensor would be taken for
 * closed whenever another one of the same port is switched.
 * @param open the open state so far, where the outputs are as in the other states
 */
int CSensorPage::withOutputsAtRest(int state, int open) const
{
    const int outputs = wizard()->outputPins();
    return (state & ~outputs) | (open & outputs);
}

WizardPage* CSensorPage::nextPage()
{
    if (hasInputs())
        storeState();
    return CRacewayWizardPage::nextPage();
}

void CSensorPage::showEvent(QShowEvent* event)
{
    CRacewayWizardPage::showEvent(event);
    // What counts is what the interface holds, whatever a reset or a half typed text left here.
    if (!event->spontaneous())
        showState();
}
