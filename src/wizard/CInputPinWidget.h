#ifndef TORNIK_WIZARD_CINPUTPINWIDGET_H
#define TORNIK_WIZARD_CINPUTPINWIDGET_H

#include "wizard/CPortStatusWidgetBase.h"

class QComboBox;
class QLabel;

/** Chooses one of the inputs D0 to D53 of an AT2560, or none. */
class CInputPinWidget : public CPortStatusWidgetBase
{
    Q_OBJECT

public:
    explicit CInputPinWidget(QWidget* parent = nullptr);

    QString labelText() const override;
    void setLabelText(const QString& text) override;
    /** Chooses an input by its number, -1 for none; another value changes nothing. */
    void setValue(quint32 value) override;
    /** @return the number of the input; -1, as an unsigned number, for none. */
    quint32 value() const override;
    /** There is no button. */
    QString buttonText() const override { return {}; }
    void setButtonText(const QString& /*text*/) override {}
    QList<QWidget*> controls() const override;

private:
    QLabel* m_label;
    QComboBox* m_box;
};

#endif
