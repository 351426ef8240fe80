#ifndef TORNIK_WIZARD_CSERIALPORTFORM_H
#define TORNIK_WIZARD_CSERIALPORTFORM_H

#include <QStringList>
#include <QVector>
#include <QWidget>

class CSerialPortBox;

/** Asks for the serial ports of an interface, one or more of them, below a hint. */
class CSerialPortForm : public QWidget
{
    Q_OBJECT

public:
    /**
     * @param labels one for each port
     * @param noneText the entry for a port that isn't used; empty if each is needed
     */
    CSerialPortForm(const QString& hint, const QStringList& labels, const QString& noneText,
                    QWidget* parent = nullptr);

    /** @param index 0 to the number of labels - 1 */
    QString portName(int index = 0) const;
    void setPortName(const QString& name, int index = 0);
    /** Lists the ports that are there now; what was chosen stays. */
    void setPorts(const QStringList& names);
    /** Back to the first port, or to none where none is possible. */
    void clear();

private:
    QVector<CSerialPortBox*> m_boxes;
};

#endif
