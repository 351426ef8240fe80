#include "dialogs/FormParts.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QSpinBox>
#include <QTimeEdit>

namespace FormParts {

QLabel* label(const QString& text, QWidget* parent)
{
    return new QLabel(text, parent);
}

QTimeEdit* timeEdit(const char* name, const QString& format, const QTime& first, const QTime& last,
                    QWidget* parent)
{
    auto* edit = new QTimeEdit(parent);
    edit->setObjectName(QLatin1String(name));
    edit->setDisplayFormat(format);
    edit->setTimeRange(first, last);
    return edit;
}

QTimeEdit* lapTimeEdit(const char* name, QWidget* parent)
{
    return timeEdit(name, QStringLiteral("mm:ss:zzz"), QTime(0, 0), QTime(0, 59, 59, 999), parent);
}

QSpinBox* numberBox(const char* name, int first, int last, QWidget* parent)
{
    auto* box = new QSpinBox(parent);
    box->setObjectName(QLatin1String(name));
    box->setRange(first, last);
    return box;
}

QDoubleSpinBox* amountBox(const char* name, QWidget* parent)
{
    auto* box = new QDoubleSpinBox(parent);
    box->setObjectName(QLatin1String(name));
    box->setRange(0.1, 999.99);
    box->setSingleStep(0.1);
    return box;
}

void check(const QButtonGroup& group, int id)
{
    QAbstractButton* button = group.button(id);
    (button ? button : group.button(0))->setChecked(true);
    fixTabFocus(group);
}

void fixTabFocus(const QButtonGroup& group)
{
    const QAbstractButton* checked = group.checkedButton();
    const bool canReachIt = checked && checked->isEnabled();
    for (QAbstractButton* button : group.buttons())
        button->setFocusPolicy(!canReachIt || button == checked ? Qt::StrongFocus : Qt::ClickFocus);
}

} // namespace FormParts
