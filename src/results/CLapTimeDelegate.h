#ifndef TORNIK_RESULTS_CLAPTIMEDELEGATE_H
#define TORNIK_RESULTS_CLAPTIMEDELEGATE_H

#include <QStyledItemDelegate>

/** Shows a column of whole milliseconds as lap times. */
class CLapTimeDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /**
     * @param value milliseconds
     * @return minutes, seconds and milliseconds, "mm:ss:zzz"
     */
    QString displayText(const QVariant& value, const QLocale& locale) const override;
};

#endif
