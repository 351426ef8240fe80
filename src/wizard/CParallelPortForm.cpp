#include "wizard/CParallelPortForm.h"

#include "io/CInpOutLibrary.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegExpValidator>

namespace {

constexpr int Hexadecimal = 16;

void chooseRegister(QComboBox* box, int offset, int usual)
{
    box->setCurrentIndex(offset >= 0 && offset < box->count() ? offset : usual);
}

} // namespace

CParallelPortForm::CParallelPortForm(QWidget* parent)
    : QWidget(parent),
      m_addressEdit(new QLineEdit(this)),
      m_inputBox(new QComboBox(this)),
      m_outputBox(new QComboBox(this))
{
    m_addressEdit->setObjectName("addressEdit");
    m_addressEdit->setValidator(new QRegExpValidator(QRegExp("0x[0123456789abcdefABCDEF]{1,4}"), this));
    m_inputBox->setObjectName("inputRegisterBox");
    m_outputBox->setObjectName("outputRegisterBox");
    for (QComboBox* box : {m_inputBox, m_outputBox})
        box->addItems({tr("Data Register"), tr("Status Register"), tr("Control Register")});
    clear();

    auto* help = new QLabel(tr("Data Register: Pin 2 bis Pin 9<br>"
                               "Status Register: Pin 10 bis Pin 13 und Pin 15<br>"
                               "Control Register: Pin 1, Pin 14, Pin 16 und Pin 17<br>"
                               "Für Ausgänge (z.B. Startampel) wird immer das Data Register verwendet."),
                            this);
    help->setWordWrap(true);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(new QLabel(tr("Port Adresse:"), this), 0, 0);
    grid->addWidget(m_addressEdit, 0, 1);
    grid->addWidget(new QLabel(tr("Register für Sensoren:"), this), 1, 0);
    grid->addWidget(m_inputBox, 1, 1);
    grid->addWidget(new QLabel(tr("Register für Ausgänge:"), this), 2, 0);
    grid->addWidget(m_outputBox, 2, 1);
    grid->addWidget(help, 3, 0, 1, 3);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(4, 1);
}

int CParallelPortForm::baseAddress() const
{
    bool isNumber = false;
    const int address = m_addressEdit->text().toInt(&isNumber, Hexadecimal);
    return isNumber ? address : CInpOutLibrary::DefaultBaseAddress;
}

void CParallelPortForm::setBaseAddress(int address)
{
    m_addressEdit->setText("0x" + QString::number(uint(address), Hexadecimal));
}

int CParallelPortForm::inputOffset() const
{
    return m_inputBox->currentIndex();
}

void CParallelPortForm::setInputOffset(int offset)
{
    chooseRegister(m_inputBox, offset, CInpOutLibrary::DefaultInputOffset);
}

int CParallelPortForm::outputOffset() const
{
    return m_outputBox->currentIndex();
}

void CParallelPortForm::setOutputOffset(int offset)
{
    chooseRegister(m_outputBox, offset, CInpOutLibrary::DefaultOutputOffset);
}

void CParallelPortForm::clear()
{
    setBaseAddress(CInpOutLibrary::DefaultBaseAddress);
    setInputOffset(CInpOutLibrary::DefaultInputOffset);
    setOutputOffset(CInpOutLibrary::DefaultOutputOffset);
}
