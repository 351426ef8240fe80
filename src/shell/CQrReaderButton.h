#ifndef TORNIK_SHELL_CQRREADERBUTTON_H
#define TORNIK_SHELL_CQRREADERBUTTON_H

#include <QColor>
#include <QToolButton>

/** The button that lets a driver or a car be chosen by its code. Owned by its Qt parent. */
class CQrReaderButton : public QToolButton
{
    Q_OBJECT

public:
    explicit CQrReaderButton(QWidget* parent = nullptr);

    /** @param name a colour name as style sheets know it */
    void setBackgroundColor(const QString& name);
    QColor color() const { return m_color; }

private:
    QColor m_color; ///< never set: the style sheet holds the colour
};

#endif
