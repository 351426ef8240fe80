#ifndef TORNIK_TESTS_SUPPORT_DIALOGPICTURE_H
#define TORNIK_TESTS_SUPPORT_DIALOGPICTURE_H

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QTabBar>
#include <QTest>

/** Checks of a dialog that is open: whether all of it can be seen, its columns are straight, and its letters
 * reach one control each. */
namespace DialogPicture {

constexpr QSize SmallScreen(1366, 768);

/** Saves the picture where a person wants to look at it: into the directory TORNIK_PICTURES. */
inline bool savePicture(QWidget* dialog, const QString& name)
{
    const QString directory = qEnvironmentVariable("TORNIK_PICTURES");
    return directory.isEmpty() || dialog->grab().save(QDir(directory).filePath(name + ".png"));
}

/** Whether the text of a field, or what stands there in its place, fits into it. */
inline bool isWhole(const QLineEdit* edit)
{
    QStyleOptionFrame option;
    option.initFrom(edit);
    option.lineWidth = edit->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, edit);
    const QRect inside = edit->style()->subElementRect(QStyle::SE_LineEditContents, &option, edit);
    const QString text = edit->text().isEmpty() ? edit->placeholderText() : edit->text();
    const int cursor = 1;
    return inside.width() >= edit->fontMetrics().horizontalAdvance(text) + cursor &&
           inside.height() >= edit->fontMetrics().height();
}

/** Whether a button is wide enough for its text; a style sheet's least width makes its size hint lie. */
inline bool hasRoomForItsText(const QPushButton* button)
{
    const int border = 1;
    const QSize text = button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
    return button->width() >= text.width() + 2 * border && button->height() >= text.height() + 2 * border;
}

inline bool hasRoomForItsTitle(const QGroupBox* group)
{
    const int inset = 8 + 3; // of the title from the left edge
    return group->width() >= inset + group->fontMetrics().horizontalAdvance(group->title());
}

inline bool hasRoomForItsTitles(const QTabBar* bar)
{
    const int border = 1;
    for (int tab = 0; tab < bar->count(); ++tab) {
        if (bar->tabRect(tab).width() < bar->fontMetrics().horizontalAdvance(bar->tabText(tab)) + 2 * border)
            return false;
    }
    return true;
}

/** Whether the whole of a control's text can be seen. */
inline bool isWhole(const QWidget* widget)
{
    if (const auto* edit = qobject_cast<const QLineEdit*>(widget))
        return isWhole(edit);
    if (qobject_cast<const QComboBox*>(widget))
        return widget->width() >= widget->sizeHint().width();
    if (const auto* button = qobject_cast<const QPushButton*>(widget))
        return hasRoomForItsText(button);
    if (const auto* group = qobject_cast<const QGroupBox*>(widget))
        return hasRoomForItsTitle(group);
    if (const auto* bar = qobject_cast<const QTabBar*>(widget))
        return hasRoomForItsTitles(bar);
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (label && label->wordWrap())
        return label->height() >= label->heightForWidth(label->width());
    const bool sized = label || qobject_cast<const QAbstractButton*>(widget) ||
                       qobject_cast<const QAbstractSpinBox*>(widget);
    if (!sized)
        return true;
    const QSize needed = label ? widget->sizeHint() : widget->minimumSizeHint();
    return widget->width() >= needed.width() && widget->height() >= needed.height();
}

inline QStringList clippedWidgets(const QDialog* dialog)
{
    QStringList names;
    for (const QWidget* widget : dialog->findChildren<QWidget*>()) {
        const QRect place(widget->mapTo(const_cast<QDialog*>(dialog), QPoint(0, 0)), widget->size());
        if (widget->isVisible() && (!isWhole(widget) || !dialog->rect().contains(place)))
            names.append(widget->objectName() + ' ' + widget->property("text").toString());
    }
    return names;
}

/** The edges of the widgets of one kind in a column of a grid, by the text or name of each widget. */
class ColumnEdges
{
public:
    void add(const QWidget* widget, int edge)
    {
        const QString text = widget->property("text").toString();
        m_edges[edge].append(text.isEmpty() ? widget->objectName() : text);
    }
    /** @return the widgets that don't stand where most do. */
    QStringList ragged() const
    {
        int most = 0;
        for (const QStringList& widgets : m_edges)
            most = qMax(most, widgets.size());
        QStringList others;
        bool isMostFound = false;
        for (const QStringList& widgets : m_edges) {
            if (widgets.size() == most && !isMostFound)
                isMostFound = true;
            else
                others += widgets;
        }
        return others;
    }

private:
    QMap<int, QStringList> m_edges;
};

/** @return what doesn't stand in line with its column: the left edge of texts, both edges of fields. */
inline QStringList raggedColumn(const QGridLayout* grid, int column)
{
    ColumnEdges texts;
    ColumnEdges fieldsLeft;
    ColumnEdges fieldsRight;
    for (int index = 0; index < grid->count(); ++index) {
        int row, first, rows, columns;
        grid->getItemPosition(index, &row, &first, &rows, &columns);
        const QWidget* widget = grid->itemAt(index)->widget();
        if (first != column || columns != 1 || !widget || !widget->isVisible())
            continue;
        const QRect place = widget->geometry();
        if (qobject_cast<const QLabel*>(widget) || qobject_cast<const QCheckBox*>(widget) ||
            qobject_cast<const QRadioButton*>(widget)) {
            texts.add(widget, place.left());
        } else if (qobject_cast<const QAbstractSpinBox*>(widget)) {
            fieldsLeft.add(widget, place.left());
            fieldsRight.add(widget, place.right());
        }
    }
    return texts.ragged() + fieldsLeft.ragged() + fieldsRight.ragged();
}

inline QStringList raggedColumns(const QDialog* dialog)
{
    QStringList names;
    for (const QGridLayout* grid : dialog->findChildren<QGridLayout*>()) {
        for (int column = 0; column < grid->columnCount(); ++column)
            names += raggedColumn(grid, column);
    }
    return names;
}

/** @return the letters that stand for more than one visible control. */
inline QStringList collidingMnemonics(const QDialog* dialog)
{
    QStringList letters;
    QStringList collisions;
    for (const QAbstractButton* button : dialog->findChildren<QAbstractButton*>()) {
        const QString letter = QKeySequence::mnemonic(button->text()).toString();
        if (!button->isVisible() || letter.isEmpty())
            continue;
        if (letters.contains(letter))
            collisions.append(letter);
        letters.append(letter);
    }
    return collisions;
}

/** With TORNIK_PICTURES set it saves a picture, too, for a person to look at. */
inline void look(QDialog* dialog, const QString& name)
{
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
    QApplication::processEvents();
    QVERIFY(savePicture(dialog, name));
    QCOMPARE(clippedWidgets(dialog).join(", "), QString());
    QCOMPARE(raggedColumns(dialog).join(", "), QString());
    QCOMPARE(collidingMnemonics(dialog), QStringList());
    QVERIFY2(dialog->width() <= SmallScreen.width() && dialog->height() <= SmallScreen.height(),
             qPrintable(QStringLiteral("%1x%2").arg(dialog->width()).arg(dialog->height())));
}

} // namespace DialogPicture

#endif
