#include "wizard/CPortStatusWidget.h"

#include "wizard/FittingFont.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegExpValidator>

namespace {

constexpr int MaximumLength = 10;
constexpr int MaximumWidth = 70;
constexpr int Hexadecimal = 16;

} // namespace

CPortStatusWidget::CPortStatusWidget(QWidget* parent)
    : CPortStatusWidgetBase(parent),
      m_label(new QLabel(this)),
      m_edit(new QLineEdit("0xFF", this)),
      m_button(new QPushButton(tr("Ermitteln"), this))
{
    m_label->setObjectName("stateLabel");
    m_edit->setObjectName("stateEdit");
    m_button->setObjectName("learnButton");
    m_edit->setMaxLength(MaximumLength);
    m_edit->setMaximumWidth(MaximumWidth);
    keepTextFitting(m_edit);
    // Required: the range from "0" to "f" lets capital letters and some punctuation through, too.
    m_edit->setValidator(new QRegExpValidator(QRegExp("0x[0-f]{2,8}"), this));
    m_button->setAutoDefault(false); // the return key goes on to the next page
    connect(m_edit, &QLineEdit::textEdited, this, &CPortStatusWidget::reactToTyping);
    connect(m_button, &QPushButton::clicked, this, &CPortStatusWidget::vScanPort);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_label);
    layout->addWidget(m_edit);
    layout->addWidget(m_button);
    layout->addStretch();
}

QString CPortStatusWidget::labelText() const
{
    return m_label->text();
}

void CPortStatusWidget::setLabelText(const QString& text)
{
    m_label->setText(text);
}

void CPortStatusWidget::setValue(quint32 value)
{
    m_edit->setText("0x" + QString::number(value, Hexadecimal));
}

quint32 CPortStatusWidget::value() const
{
    return m_edit->text().toUInt(nullptr, Hexadecimal);
}

QString CPortStatusWidget::buttonText() const
{
    return m_button->text();
}

void CPortStatusWidget::setButtonText(const QString& text)
{
    m_button->setText(text);
}

QList<QWidget*> CPortStatusWidget::controls() const
{
    return {m_button, m_edit};
}

void CPortStatusWidget::vScanPort()
{
    Q_EMIT clicked();
}

void CPortStatusWidget::reactToTyping()
{
    bool isNumber = false;
    m_edit->text().toUInt(&isNumber, Hexadecimal);
    if (isNumber && m_edit->hasAcceptableInput())
        Q_EMIT valueChanged();
}
