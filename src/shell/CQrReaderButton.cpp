#include "shell/CQrReaderButton.h"

#include "images/Images.h"

#include <QIcon>

CQrReaderButton::CQrReaderButton(QWidget* parent) : QToolButton(parent)
{
    initImages();
    setIcon(QIcon(QStringLiteral(":/images/QR_Icon4.png")));
    setBackgroundColor(QStringLiteral("#FFC80A"));
}

void CQrReaderButton::setBackgroundColor(const QString& name)
{
    const QString sheet = QStringLiteral("background-color: %1; padding: 0px;").arg(name);
    if (sheet != styleSheet())
        setStyleSheet(sheet);
    update();
}
