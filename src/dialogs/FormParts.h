#ifndef TORNIK_DIALOGS_FORMPARTS_H
#define TORNIK_DIALOGS_FORMPARTS_H

#include <QString>

class QButtonGroup;
class QDoubleSpinBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QTime;
class QTimeEdit;
class QWidget;

/** Makes the controls that the forms of the dialogs share. Each belongs to its parent widget. */
namespace FormParts {

constexpr int Indent = 20; ///< pixels from a control to those that depend on it

/** Makes a button of any kind. */
template <typename Button>
Button* button(const char* name, const QString& text, QWidget* parent)
{
    auto* made = new Button(text, parent);
    made->setObjectName(QLatin1String(name));
    return made;
}

QLabel* label(const QString& text, QWidget* parent);
/** Makes the field of a window that asks for a name alone. */
QLineEdit* nameEdit(const char* name, QWidget* parent);
/** @return the width that shows a button's text whole: a style sheet's least width lets a layout clip it. */
int wholeWidth(const QPushButton* button);
/**
 * Says in an empty field what belongs there, dimmer than a text that really stands there: a style sheet
 * with a colour paints both alike.
 */
void setPlaceholder(QLineEdit* edit, const QString& text);
/** Makes the letters of a field of fixed width small enough for @p longest, with nothing round them. */
void fitLetters(QLineEdit* edit, int width, const QString& longest);
/** @return a row with a widget behind an indent of so many steps. */
QHBoxLayout* indented(QWidget* widget, int steps = 1);
/** The times of the range are both allowed. */
QTimeEdit* timeEdit(const char* name, const QString& format, const QTime& first, const QTime& last,
                    QWidget* parent);
/** A time edit with the format "mm:ss:zzz" for times below an hour. */
QTimeEdit* lapTimeEdit(const char* name, QWidget* parent);
QSpinBox* numberBox(const char* name, int first, int last, QWidget* parent);
/** A box for an amount of fuel: 0.1 to 999.99 in steps of 0.1. */
QDoubleSpinBox* amountBox(const char* name, QWidget* parent);

/** Checks the button with that id; 0 stands in for an id that the group doesn't have. */
void check(const QButtonGroup& group, int id);
/** Lets the tab key stop at the checked button alone, or at each if that one is disabled. */
void fixTabFocus(const QButtonGroup& group);

} // namespace FormParts

#endif
