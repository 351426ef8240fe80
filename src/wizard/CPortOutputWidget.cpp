#include "wizard/CPortOutputWidget.h"

#include "io/CRacewayIo.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>

namespace {

constexpr int ParallelPortPins = 8;
constexpr int FirstParallelPortPin = 2;
constexpr int PinsOfAPort = 8;
constexpr int IoWarrior24Pins = 16;
constexpr int IoWarrior28Pins = 18;
constexpr int IoWarriorPins = 32; ///< of the larger chips, as far as a state can hold them
constexpr int At2560Outputs = 16;

quint32 maskOf(int pin)
{
    return quint32(1) << pin;
}

QString portPinText(int pin)
{
    return QStringLiteral("P%1.%2").arg(pin / PinsOfAPort).arg(pin % PinsOfAPort);
}

} // namespace

CPortOutputWidget::CPortOutputWidget(int portId, const QString& labelText, QWidget* parent)
    : QWidget(parent),
      m_pinBox(new QComboBox(this)),
      m_invertBox(new QCheckBox(tr("invers"), this)),
      m_label(new QLabel(labelText, this)),
      m_portId(portId)
{
    setObjectName(QStringLiteral("output%1").arg(portId));
    m_pinBox->setObjectName("pinBox");
    m_invertBox->setObjectName("invertBox");
    m_pinBox->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    setFocusProxy(m_pinBox);
    fillPins(0);
    connect(m_pinBox, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &CPortOutputWidget::vValueChanged);
    connect(m_invertBox, &QCheckBox::toggled, this, &CPortOutputWidget::reactToInvert);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_label);
    layout->addWidget(m_pinBox);
    layout->addWidget(m_invertBox);
    layout->addStretch();
}

void CPortOutputWidget::setMaskAndInvert(quint32 mask, bool inverted)
{
    const int index = m_pinBox->findData(mask);
    if (index < 0)
        return;
    m_pinBox->setCurrentIndex(index);
    m_invertBox->setChecked(inverted);
}

quint32 CPortOutputWidget::mask() const
{
    return m_pinBox->currentData().toUInt();
}

bool CPortOutputWidget::inverted() const
{
    return m_invertBox->isChecked();
}

void CPortOutputWidget::fillForInterface(CRacewayIo** io)
{
    const CRacewayIo* hardware = io ? *io : nullptr;
    const int type = hardware ? hardware->interfaceType() : 0;
    m_pinBox->setEnabled(true);
    fillPins(type);
    if (hardware) {
        const bool isInverted = hardware->isInverted(m_portId);
        m_invertBox->setChecked(isInverted); // of an output without a pin, too
        setMaskAndInvert(quint32(hardware->portState(m_portId)), isInverted);
    }
    m_pinBox->setEnabled(type != CRacewayIo::LtAt2560);
    setFocusProxy(m_pinBox->isEnabled() ? static_cast<QWidget*>(m_pinBox) : m_invertBox);
}

void CPortOutputWidget::store(CRacewayIo* io) const
{
    if (io)
        io->setPortState(m_portId, int(mask()), inverted());
}

void CPortOutputWidget::fillPins(int interfaceType)
{
    const QSignalBlocker silence(m_pinBox); // none of the steps is a choice
    m_pinBox->clear();
    m_pinBox->addItem(" ---");
    switch (interfaceType) {
    case CRacewayIo::ParallelPort:
        for (int i = 0; i < ParallelPortPins; ++i)
            addPin(QStringLiteral("Pin%1 (D%2)").arg(i + FirstParallelPortPin).arg(i), maskOf(i));
        break;
    case CRacewayIo::IoWarrior24:
        addPortPins(IoWarrior24Pins);
        break;
    case CRacewayIo::IoWarrior28:
        addPortPins(IoWarrior28Pins);
        addPin(portPinText(IoWarriorPins - 1), maskOf(IoWarriorPins - 1));
        break;
    case CRacewayIo::IoWarrior40:
    case CRacewayIo::IoWarrior56:
    case CRacewayIo::IoWarrior100:
        addPortPins(IoWarriorPins);
        break;
    case CRacewayIo::LtAt2560:
        for (int i = 0; i < At2560Outputs; ++i)
            addPin(QStringLiteral("D%1").arg(i), quint32(i));
        break;
    default:
        break;
    }
}

void CPortOutputWidget::addPin(const QString& text, quint32 mask)
{
    m_pinBox->addItem(text, mask);
}

void CPortOutputWidget::addPortPins(int count)
{
    for (int pin = 0; pin < count; ++pin)
        addPin(portPinText(pin), maskOf(pin));
}

int CPortOutputWidget::labelWidth() const
{
    return m_label->sizeHint().width();
}

void CPortOutputWidget::setLabelWidth(int width)
{
    m_label->setMinimumWidth(width);
}

void CPortOutputWidget::vValueChanged(int /*index*/)
{
    Q_EMIT valueChanged();
}

void CPortOutputWidget::reactToInvert(bool /*checked*/)
{
    Q_EMIT valueChanged();
}
