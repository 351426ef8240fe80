#ifndef TORNIK_TESTS_SUPPORT_DIALOGPICTURE_H
#define TORNIK_TESTS_SUPPORT_DIALOGPICTURE_H

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QTest>

/** Checks of a dialog that is open: whether all of it can be seen, and its letters reach one control each. */
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

/** Whether the whole of a control's text can be seen. */
inline bool isWhole(const QWidget* widget)
{
    if (const auto* edit = qobject_cast<const QLineEdit*>(widget))
        return isWhole(edit);
    if (qobject_cast<const QComboBox*>(widget))
        return widget->width() >= widget->sizeHint().width();
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
    QCOMPARE(collidingMnemonics(dialog), QStringList());
    QVERIFY2(dialog->width() <= SmallScreen.width() && dialog->height() <= SmallScreen.height(),
             qPrintable(QStringLiteral("%1x%2").arg(dialog->width()).arg(dialog->height())));
}

} // namespace DialogPicture

#endif
