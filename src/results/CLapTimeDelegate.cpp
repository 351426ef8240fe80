#include "results/CLapTimeDelegate.h"

#include <QTime>

QString CLapTimeDelegate::displayText(const QVariant& value, const QLocale&) const
{
    return QTime(0, 0).addMSecs(value.toInt()).toString("mm:ss:zzz");
}
