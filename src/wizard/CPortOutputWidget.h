#ifndef TORNIK_WIZARD_CPORTOUTPUTWIDGET_H
#define TORNIK_WIZARD_CPORTOUTPUTWIDGET_H

#include <QWidget>

class CRacewayIo;
class QCheckBox;
class QComboBox;
class QLabel;

/** Chooses the pin of one output and its polarity. */
class CPortOutputWidget : public QWidget
{
    Q_OBJECT

public:
    CPortOutputWidget(int portId, const QString& labelText, QWidget* parent = nullptr);

    int portId() const { return m_portId; }
    /** Chooses the pin with that mask and sets the polarity; an unknown mask changes nothing. */
    void setMaskAndInvert(quint32 mask, bool inverted);
    /** @return the mask of the pin, for an AT2560 its number; 0 for none. */
    quint32 mask() const;
    bool inverted() const;

    /**
     * Offers the pins of an interface and shows what it holds for this output. Those of an AT2560
     * are fixed.
     * @param io where the interface is kept, which may be null; not owned
     */
    void fillForInterface(CRacewayIo** io);
    /** Stores what is shown in an interface. */
    void store(CRacewayIo* io) const;

    int labelWidth() const;
    /** Lines the controls up with those of its neighbours. */
    void setLabelWidth(int width);

Q_SIGNALS:
    void valueChanged();

private Q_SLOTS:
    void vValueChanged(int index);
    void reactToInvert(bool checked);

private:
    void fillPins(int interfaceType);
    void addPin(const QString& text, quint32 mask);
    void addPortPins(int count);

    QComboBox* m_pinBox;
    QCheckBox* m_invertBox;
    QLabel* m_label;
    int m_portId;
};

#endif
