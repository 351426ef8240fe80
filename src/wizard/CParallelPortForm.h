#ifndef TORNIK_WIZARD_CPARALLELPORTFORM_H
#define TORNIK_WIZARD_CPARALLELPORTFORM_H

#include <QWidget>

class QComboBox;
class QLineEdit;

/** Asks for the address of a parallel port and for its registers. */
class CParallelPortForm : public QWidget
{
    Q_OBJECT

public:
    explicit CParallelPortForm(QWidget* parent = nullptr);

    /** @return that of the usual port for a text that is no number. */
    int baseAddress() const;
    void setBaseAddress(int address);
    /** Registers count from the base address, 0 to 2. Setting another number chooses the usual one. */
    int inputOffset() const;
    void setInputOffset(int offset);
    int outputOffset() const;
    void setOutputOffset(int offset);
    /** Back to the usual port. */
    void clear();

private:
    QLineEdit* m_addressEdit;
    QComboBox* m_inputBox;
    QComboBox* m_outputBox;
};

#endif
