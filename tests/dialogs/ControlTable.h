#ifndef TORNIK_TESTS_DIALOGS_CONTROLTABLE_H
#define TORNIK_TESTS_DIALOGS_CONTROLTABLE_H

#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QPushButton>
#include <QSet>
#include <QSlider>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTimeEdit>
#include <QVariant>

#include <cmath>
#include <functional>

/** What a user sees of a dialog, read off the dialog itself as it stands on the screen. */
namespace ControlWalk {

constexpr int Beside = 16; ///< pixels that may lie between a control and the text that belongs to it

inline bool isInput(const QWidget* widget)
{
    return qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QAbstractSpinBox*>(widget) ||
           qobject_cast<const QAbstractSlider*>(widget) || qobject_cast<const QComboBox*>(widget) ||
           qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QAbstractItemView*>(widget);
}

/** Whether a widget is a part of a control, such as the field of a spin box. */
inline bool isPart(const QWidget* widget)
{
    for (const QWidget* outer = widget->parentWidget(); outer; outer = outer->parentWidget()) {
        if (isInput(outer) || qobject_cast<const QTabBar*>(outer))
            return true;
    }
    return false;
}

/** @return each control that takes something from the user, on whatever tab. */
inline QList<QWidget*> inputControls(const QDialog* dialog)
{
    QList<QWidget*> controls;
    for (QWidget* widget : dialog->findChildren<QWidget*>()) {
        if (widget->window() == dialog && isInput(widget) && !isPart(widget))
            controls.append(widget);
    }
    return controls;
}

inline QRect placeOf(const QWidget* widget)
{
    return {widget->mapTo(widget->window(), QPoint(0, 0)), widget->size()};
}

inline QList<QLabel*> labelsInSight(const QDialog* dialog)
{
    QList<QLabel*> labels;
    for (QLabel* label : dialog->findChildren<QLabel*>()) {
        if (label->window() == dialog && label->isVisible())
            labels.append(label);
    }
    return labels;
}

/** The texts that belong to a control: on its left, or over a list, and on its right. */
struct Captions
{
    QLabel* before = nullptr;
    QLabel* after = nullptr;
};

inline Captions captionsOf(const QWidget* control)
{
    Captions captions;
    const QRect place = placeOf(control);
    const bool isList = qobject_cast<const QAbstractItemView*>(control);
    for (QLabel* label : labelsInSight(qobject_cast<const QDialog*>(control->window()))) {
        const QRect other = placeOf(label);
        const bool sameRow = std::abs(other.center().y() - place.center().y()) <= 2;
        const int left = place.left() - other.right();
        const int right = other.left() - place.right();
        const int above = place.top() - other.bottom();
        if (isList ? other.left() == place.left() && above > 0 && above < Beside
                   : sameRow && left > 0 && left < Beside)
            captions.before = label;
        else if (sameRow && right > 0 && right < Beside)
            captions.after = label;
    }
    return captions;
}

inline QString textOf(const QLabel* label)
{
    return label ? label->text() : QString();
}

inline QString timeText(const QTime& time)
{
    return time.toString("hh:mm:ss.zzz");
}

inline QString rangeOf(const QLineEdit* edit)
{
    const int anyLength = 32767;
    QStringList limits;
    if (edit->maxLength() != anyLength)
        limits.append(QStringLiteral("%1 characters").arg(edit->maxLength()));
    if (const auto* numbers = qobject_cast<const QIntValidator*>(edit->validator()))
        limits.append(QStringLiteral("%1 to %2").arg(numbers->bottom()).arg(numbers->top()));
    return limits.join(", ");
}

/** @return what a control takes, in words. */
inline QString rangeOf(const QWidget* widget)
{
    const QString range("%1 to %2");
    if (const auto* time = qobject_cast<const QTimeEdit*>(widget))
        return time->displayFormat() + ", " +
               range.arg(timeText(time->minimumTime()), timeText(time->maximumTime()));
    if (const auto* box = qobject_cast<const QDoubleSpinBox*>(widget))
        return range.arg(box->minimum()).arg(box->maximum()) +
               QStringLiteral(" by %1").arg(box->singleStep());
    if (const auto* box = qobject_cast<const QSpinBox*>(widget))
        return range.arg(box->minimum()).arg(box->maximum());
    if (const auto* slider = qobject_cast<const QSlider*>(widget))
        return range.arg(slider->minimum()).arg(slider->maximum()) +
               QStringLiteral(", tick each %1").arg(slider->tickInterval());
    if (const auto* edit = qobject_cast<const QLineEdit*>(widget))
        return rangeOf(edit);
    QStringList entries;
    if (const auto* box = qobject_cast<const QComboBox*>(widget)) {
        for (int entry = 0; entry < box->count(); ++entry)
            entries.append(box->itemText(entry));
    }
    return entries.join(", ");
}

inline QString kindOf(const QWidget* widget)
{
    for (const char* kind : {"QRadioButton", "QCheckBox", "QPushButton", "QTimeEdit", "QDoubleSpinBox",
                             "QSpinBox", "QSlider", "QComboBox", "QLineEdit", "QTreeView"}) {
        if (widget->inherits(kind))
            return kind;
    }
    return widget->metaObject()->className();
}

inline QString titleOfGroup(const QWidget* widget)
{
    for (const QWidget* outer = widget; outer; outer = outer->parentWidget()) {
        if (const auto* group = qobject_cast<const QGroupBox*>(outer))
            return group->title();
    }
    return QString();
}

inline QString titleOfTab(const QTabWidget* tabs, const QWidget* widget)
{
    for (int tab = 0; tab < tabs->count(); ++tab) {
        if (tabs->widget(tab)->isAncestorOf(widget))
            return tabs->tabText(tab);
    }
    return QString();
}

/** One look at each tab of a dialog. */
class Walk
{
public:
    explicit Walk(QDialog* dialog)
    {
        auto* tabs = dialog->findChild<QTabWidget*>("tabs");
        const QList<QWidget*> controls = inputControls(dialog);
        QSet<QLabel*> others;
        for (int tab = 0; tab < tabs->count(); ++tab) {
            titles.append(tabs->tabText(tab));
            tabs->setCurrentIndex(tab);
            QApplication::processEvents();
            for (QLabel* label : labelsInSight(dialog))
                others.insert(label);
            for (const QWidget* control : controls) {
                if (control->isVisible())
                    see(tabs, control);
            }
        }
        for (const auto& labels : qAsConst(captions)) {
            others.remove(labels.before);
            others.remove(labels.after);
        }
        for (const QLabel* label : qAsConst(others))
            otherTexts.append(label->text());
        for (const QWidget* control : controls)
            names.append(control->objectName());
        names.sort();
    }

    QStringList titles;     ///< of the tabs
    QStringList names;      ///< of the controls, sorted
    QStringList otherTexts; ///< of labels that belong to no control
    QMap<QString, QStringList>
        seen; ///< kind, tab, group, text before, text, text behind, range of each control
    QMap<QString, Captions> captions;

private:
    void see(const QTabWidget* tabs, const QWidget* control)
    {
        const Captions labels = captionsOf(control);
        const auto* button = qobject_cast<const QAbstractButton*>(control);
        captions.insert(control->objectName(), labels);
        seen.insert(control->objectName(),
                    {kindOf(control), titleOfTab(tabs, control), titleOfGroup(control), textOf(labels.before),
                     button ? button->text() : QString(), textOf(labels.after), rangeOf(control)});
    }
};

} // namespace ControlWalk

/** All that is to be known of a control that edits a value of a record. */
template <typename Record>
class ControlRow
{
public:
    using Change = std::function<void(Record&)>;
    using Rule = std::function<bool(const Record&)>;

    /** What it shows to a new user. */
    ControlRow& shows(const QVariant& value) { return shown = value, *this; }
    /** When it can be used; else always. */
    ControlRow& when(Rule rule) { return isEnabled = std::move(rule), *this; }
    /** A value that the user enters, and what it changes in the record. */
    ControlRow& takes(const QVariant& value, Change change)
    {
        entered = value;
        stored = std::move(change);
        return *this;
    }
    /** What stands in the record before, so that the control can be used and shows something else. */
    ControlRow& from(Change change) { return before = std::move(change), *this; }

    QByteArray name;
    QStringList seen; ///< as of a Walk
    QVariant shown;
    QVariant entered;
    Rule isEnabled = [](const Record&) { return true; };
    Change before = [](Record&) {};
    Change stored; ///< none of a control that edits no value
};

/** The controls of a dialog, in the words of whoever ordered it. */
template <typename Record>
class ControlTable
{
public:
    using Row = ControlRow<Record>;

    QList<Row> rows;
    QStringList titles;     ///< of the tabs
    QStringList otherTexts; ///< that belong to no control

    /** The following controls lie there. */
    void place(const QString& tab, const QString& group = QString())
    {
        m_tab = tab;
        m_group = group;
        if (!tab.isEmpty() && !titles.contains(tab))
            titles.append(tab);
    }

    Row& push(const char* name, const QString& text, const QString& after = QString())
    {
        return add(name, "QPushButton", QString(), text, after, QString());
    }
    Row& check(const char* name, const QString& text)
    {
        return add(name, "QCheckBox", QString(), text, QString(), QString()).shows(false);
    }
    Row& radio(const QString& name, const QString& text)
    {
        return add(name.toUtf8(), "QRadioButton", QString(), text, QString(), QString()).shows(false);
    }
    Row& time(const char* name, const QString& before, const QString& format, const QTime& first,
              const QTime& last, const QString& after = QString())
    {
        const QString range =
            format + ", " + ControlWalk::timeText(first) + " to " + ControlWalk::timeText(last);
        return add(name, "QTimeEdit", before, QString(), after, range);
    }
    Row& lapTime(const char* name, const QString& before, const QString& after = QString())
    {
        return time(name, before, "mm:ss:zzz", QTime(0, 0), QTime(0, 59, 59, 999), after);
    }
    Row& number(const char* name, const QString& before, const QString& range, const QString& after)
    {
        return add(name, "QSpinBox", before, QString(), after, range);
    }
    Row& amount(const char* name, const QString& before)
    {
        return add(name, "QDoubleSpinBox", before, QString(), QString(), "0.1 to 999.99 by 0.1");
    }
    Row& slider(const char* name, const QString& range, const QString& after)
    {
        return add(name, "QSlider", QString(), QString(), after, range);
    }
    Row& edit(const char* name, const QString& before, const QString& range = QString())
    {
        return add(name, "QLineEdit", before, QString(), QString(), range);
    }
    Row& combo(const char* name, const QString& before, const QString& entries = QString())
    {
        return add(name, "QComboBox", before, QString(), QString(), entries);
    }
    Row& tree(const char* name, const QString& caption)
    {
        return add(name, "QTreeView", caption, QString(), QString(), QString());
    }

    const Row& row(const QByteArray& name) const
    {
        for (const Row& candidate : rows) {
            if (candidate.name == name)
                return candidate;
        }
        qFatal("the table has no %s", name.constData());
    }
    /** @return the names of the controls that edit a value. */
    QList<QByteArray> namesOfValues() const
    {
        QList<QByteArray> names;
        for (const Row& candidate : rows) {
            if (candidate.stored)
                names.append(candidate.name);
        }
        return names;
    }

private:
    Row& add(const QByteArray& name, const QString& kind, const QString& before, const QString& text,
             const QString& after, const QString& range)
    {
        Row row;
        row.name = name;
        row.seen = QStringList{kind, m_tab, m_group, before, text, after, range};
        rows.append(row);
        return rows.last();
    }

    QString m_tab;
    QString m_group;
};

/** Compares a dialog as it stands on the screen with its table: all that either of them has. */
template <typename Record>
void compareWithTable(const ControlWalk::Walk& walk, const ControlTable<Record>& table)
{
    QCOMPARE(walk.titles, table.titles);
    QStringList names;
    for (const auto& row : table.rows) {
        names.append(row.name);
        QVERIFY2(walk.seen.contains(row.name), row.name);
        QVERIFY2(walk.seen[row.name] == row.seen,
                 qPrintable(row.name + " is " + walk.seen[row.name].join(" | ") + " but should be " +
                            row.seen.join(" | ")));
    }
    names.sort();
    QCOMPARE(walk.names.join(", "), names.join(", "));
    QStringList others = walk.otherTexts;
    QStringList expected = table.otherTexts;
    others.sort();
    expected.sort();
    QCOMPARE(others, expected);
}

/** Compares which controls can be used, and the texts that belong to them, with the rules of the table. */
template <typename Record>
void compareEnabled(const QDialog* dialog, const ControlWalk::Walk& walk, const ControlTable<Record>& table,
                    const Record& record)
{
    for (const auto& row : table.rows) {
        const bool enabled = row.isEnabled(record);
        QVERIFY2(dialog->findChild<QWidget*>(row.name)->isEnabled() == enabled, row.name);
        const ControlWalk::Captions captions = walk.captions[row.name];
        for (const QLabel* caption : {captions.before, captions.after})
            QVERIFY2(!caption || caption->isEnabled() == enabled,
                     qPrintable(row.name + " " + ControlWalk::textOf(caption)));
    }
}

#endif
