#ifndef TORNIK_SHELL_CCLICKABLELABEL_H
#define TORNIK_SHELL_CCLICKABLELABEL_H

#include <QLabel>

/** A label that tells when the mouse presses on it. */
class CClickableLabel : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

Q_SIGNALS:
    void clicked();

protected:
    void mousePressEvent(QMouseEvent* event) override;
};

#endif
