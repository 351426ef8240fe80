#ifndef TORNIK_WIZARD_CPORTSTATUSWIDGETBASE_H
#define TORNIK_WIZARD_CPORTSTATUSWIDGETBASE_H

#include <QList>
#include <QWidget>

/** Shows and edits the state of one sensor. */
class CPortStatusWidgetBase : public QWidget
{
    Q_OBJECT

public:
    explicit CPortStatusWidgetBase(QWidget* parent = nullptr);

    virtual QString labelText() const = 0;
    virtual void setLabelText(const QString& text) = 0;
    virtual void setValue(quint32 value) = 0;
    virtual quint32 value() const = 0;
    virtual QString buttonText() const = 0;
    virtual void setButtonText(const QString& text) = 0;

    /** @return the controls in the order of the tab key, that which is used most first; not empty. */
    virtual QList<QWidget*> controls() const = 0;

Q_SIGNALS:
    /** The user has chosen another value; setValue() is silent. */
    void valueChanged();
    /** The user wants the state to be learned. */
    void clicked();
};

#endif
