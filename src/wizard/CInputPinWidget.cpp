#include "wizard/CInputPinWidget.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>

namespace {

constexpr int Inputs = 54;
constexpr int NoInput = -1;

} // namespace

CInputPinWidget::CInputPinWidget(QWidget* parent)
    : CPortStatusWidgetBase(parent), m_label(new QLabel(this)), m_box(new QComboBox(this))
{
    m_label->setObjectName("stateLabel");
    m_box->setObjectName("inputBox");
    m_box->addItem("---", NoInput);
    for (int input = 0; input < Inputs; ++input)
        m_box->addItem(QStringLiteral("D%1").arg(input), input);
    connect(m_box, qOverload<int>(&QComboBox::activated), this, &CInputPinWidget::valueChanged);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_label);
    layout->addWidget(m_box);
    layout->addStretch();
}

QList<QWidget*> CInputPinWidget::controls() const
{
    return {m_box};
}

QString CInputPinWidget::labelText() const
{
    return m_label->text();
}

void CInputPinWidget::setLabelText(const QString& text)
{
    m_label->setText(text);
}

void CInputPinWidget::setValue(quint32 value)
{
    const int index = m_box->findData(int(value));
    if (index >= 0)
        m_box->setCurrentIndex(index);
}

quint32 CInputPinWidget::value() const
{
    const QVariant input = m_box->currentData();
    return quint32(input.isValid() ? input.toInt() : NoInput);
}
