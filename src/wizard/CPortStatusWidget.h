#ifndef TORNIK_WIZARD_CPORTSTATUSWIDGET_H
#define TORNIK_WIZARD_CPORTSTATUSWIDGET_H

#include "wizard/CPortStatusWidgetBase.h"

class QLabel;
class QLineEdit;
class QPushButton;

/** A state of a port as hexadecimal text, with a button that learns it. */
class CPortStatusWidget : public CPortStatusWidgetBase
{
    Q_OBJECT

public:
    explicit CPortStatusWidget(QWidget* parent = nullptr);

    QString labelText() const override;
    void setLabelText(const QString& text) override;
    void setValue(quint32 value) override;
    /** @return 0 for a text that is no number. */
    quint32 value() const override;
    QString buttonText() const override;
    void setButtonText(const QString& text) override;
    QList<QWidget*> controls() const override;

private Q_SLOTS:
    void vScanPort();

private:
    void reactToTyping();

    QLabel* m_label;
    QLineEdit* m_edit;
    QPushButton* m_button;
};

#endif
