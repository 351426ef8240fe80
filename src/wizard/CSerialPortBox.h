#ifndef TORNIK_WIZARD_CSERIALPORTBOX_H
#define TORNIK_WIZARD_CSERIALPORTBOX_H

#include <QComboBox>

/** Chooses a serial port of this machine; a path can be typed, too. */
class CSerialPortBox : public QComboBox
{
    Q_OBJECT

public:
    /** @param noneText an entry for no port at all, above the ports; empty for none */
    explicit CSerialPortBox(const QString& noneText = QString(), QWidget* parent = nullptr);

    /** @return the name of the port, empty for none. */
    QString portName() const;
    /** Shows a port, whether it is there now or not; an empty name chooses the first entry. */
    void setPortName(const QString& name);
    /** Lists the ports that are there now; what was chosen stays. */
    void setPorts(const QStringList& names);

private:
    QString m_noneText;
};

#endif
