#include "wizard/CSerialPortForm.h"

#include "wizard/CSerialPortBox.h"

#include <QGridLayout>
#include <QLabel>

CSerialPortForm::CSerialPortForm(const QString& hint, const QStringList& labels, const QString& noneText,
                                 QWidget* parent)
    : QWidget(parent)
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(new QLabel(hint, this), 0, 0, 1, 3);
    for (int row = 1; row <= labels.size(); ++row) {
        auto* box = new CSerialPortBox(noneText, this);
        box->setObjectName(QStringLiteral("serialPort%1").arg(row));
        grid->addWidget(new QLabel(labels.at(row - 1), this), row, 0);
        grid->addWidget(box, row, 1);
        m_boxes.append(box);
    }
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(labels.size() + 1, 1);
}

QString CSerialPortForm::portName(int index) const
{
    return m_boxes.at(index)->portName();
}

void CSerialPortForm::setPortName(const QString& name, int index)
{
    m_boxes.at(index)->setPortName(name);
}

void CSerialPortForm::setPorts(const QStringList& names)
{
    for (CSerialPortBox* box : m_boxes)
        box->setPorts(names);
}

void CSerialPortForm::clear()
{
    for (CSerialPortBox* box : m_boxes)
        box->setPortName(QString());
}
