#include "shell/CClickableLabel.h"

void CClickableLabel::mousePressEvent(QMouseEvent*)
{
    Q_EMIT clicked();
}
