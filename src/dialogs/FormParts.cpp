#include "dialogs/FormParts.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QStyle>
#include <QTimeEdit>

namespace {

constexpr int SmallestLetters = 8;        ///< pixels
constexpr int EdgesOfField = 2 * (1 + 2); ///< pixels: the border and what a line edit keeps free
constexpr int Cursor = 1;
constexpr int LongestName = 120;
constexpr int NameWidth = 256;                 ///< pixels
constexpr int EdgesOfButton = 2 * (1 + 5 + 4); ///< pixels: border, padding and some air

/**
 * Lets the longest time of a range be typed whatever stands in its further parts: where a part is allowed,
 * but not with those behind it, these become the greatest allowed. Its base takes "10" for the minutes of a
 * range up to 10:00 only where the seconds are 0 already.
 */
class TimeEdit : public QTimeEdit
{
public:
    using QTimeEdit::QTimeEdit;

protected:
    QValidator::State validate(QString& text, int& position) const override
    {
        const QString typed = text;
        const QValidator::State state = QTimeEdit::validate(text, position);
        const QString longest = maximumTime().toString(displayFormat());
        const auto firstPart = [](const QString& time) { return time.section(QLatin1Char(':'), 0, 0); };
        if (state != QValidator::Invalid || firstPart(typed) != firstPart(longest) ||
            QTime::fromString(typed, displayFormat()) <= maximumTime())
            return state;
        text = longest;
        return QTimeEdit::validate(text, position);
    }
};

void markPlaceholder(QLineEdit* edit)
{
    const char property[] = "showsPlaceholder";
    const bool shows = edit->text().isEmpty();
    if (edit->property(property) == QVariant(shows))
        return;
    edit->setProperty(property, shows);
    if (!edit->testAttribute(Qt::WA_WState_Polished))
        return; // the style will see it when it comes
    edit->style()->unpolish(edit);
    edit->style()->polish(edit);
}

} // namespace

namespace FormParts {

QLabel* label(const QString& text, QWidget* parent)
{
    return new QLabel(text, parent);
}

int wholeWidth(const QPushButton* button)
{
    const QSize text = button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
    return text.width() + EdgesOfButton;
}

QLineEdit* nameEdit(const char* name, QWidget* parent)
{
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(QLatin1String(name));
    edit->setMaxLength(LongestName);
    edit->setFixedWidth(NameWidth); // else it is narrower than most names
    return edit;
}

void setPlaceholder(QLineEdit* edit, const QString& text)
{
    edit->setPlaceholderText(text);
    QObject::connect(edit, &QLineEdit::textChanged, edit, [edit] { markPlaceholder(edit); });
    markPlaceholder(edit);
}

void fitLetters(QLineEdit* edit, int width, const QString& longest)
{
    edit->setMinimumHeight(edit->sizeHint().height()); // as high as its neighbours
    edit->setStyleSheet(QStringLiteral("padding: 0px;"));
    QFont font = edit->font();
    for (int size = QFontInfo(font).pixelSize(); size > SmallestLetters; --size) {
        font.setPixelSize(size);
        if (QFontMetrics(font).horizontalAdvance(longest) + Cursor + EdgesOfField <= width)
            break;
    }
    edit->setFont(font);
}

QHBoxLayout* indented(QWidget* widget, int steps)
{
    auto* row = new QHBoxLayout;
    row->addSpacing(steps * Indent);
    row->addWidget(widget);
    return row;
}

QTimeEdit* timeEdit(const char* name, const QString& format, const QTime& first, const QTime& last,
                    QWidget* parent)
{
    auto* edit = new TimeEdit(parent);
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
