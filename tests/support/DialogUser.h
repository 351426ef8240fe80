#ifndef TORNIK_TESTS_SUPPORT_DIALOGUSER_H
#define TORNIK_TESTS_SUPPORT_DIALOGUSER_H

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>
#include <QTest>
#include <QTimeEdit>
#include <QTreeView>
#include <QVariant>

/** Works the controls of an open dialog by mouse and keys; each is found by its object name. */
class DialogUser
{
public:
    /** Waits until the dialog takes keys. */
    explicit DialogUser(QDialog* dialog) : m_dialog(dialog)
    {
        dialog->activateWindow();
        // A dialog counts as active when its parent is. There a field that is left would keep what was
        // typed to itself, so that the focus must be in the dialog.
        const auto hasFocus = [dialog] { return QGuiApplication::focusWindow() == dialog->windowHandle(); };
        if (!QTest::qWaitForWindowActive(dialog) || !QTest::qWaitFor(hasFocus))
            QTest::qFail("the dialog doesn't become active", __FILE__, __LINE__);
        // The platform of the tests thinks that a window which comes back has never lost its focus.
        if (QApplication::activeWindow() != dialog)
            QApplication::setActiveWindow(dialog);
    }

    template <typename Control = QWidget>
    Control* control(const char* name) const
    {
        auto* found = m_dialog->findChild<Control*>(QLatin1String(name));
        if (!found)
            qFatal("the dialog has no %s", name);
        return found;
    }
    bool isEnabled(const char* name) const { return control(name)->isEnabled(); }

    void press(const char* button) const { QTest::mouseClick(control<QPushButton>(button), Qt::LeftButton); }

    void bringUpAndPress(const char* button) const
    {
        bringUp(control(button));
        press(button);
    }

    /** Presses the button of an underlined letter, which springs back and acts a moment later. */
    void pressLetter(Qt::Key letter) const
    {
        // Letters reach the buttons of the active window alone, and one over this may just have closed.
        m_dialog->activateWindow();
        if (!QTest::qWaitFor([this] { return m_dialog->isActiveWindow(); }))
            QTest::qFail("the dialog doesn't become active", __FILE__, __LINE__);
        QTest::keyClick(m_dialog, letter, Qt::AltModifier);
    }

    /** Gives a control its value: bool, number, text or time. Does nothing if it is disabled. */
    void enter(const char* name, const QVariant& value) const
    {
        auto* widget = control(name);
        bringUp(widget);
        if (auto* button = qobject_cast<QAbstractButton*>(widget))
            toggle(button, value.toBool());
        else if (auto* time = qobject_cast<QTimeEdit*>(widget))
            enterTime(time, value.toTime());
        else if (auto* slider = qobject_cast<QSlider*>(widget))
            slide(slider, value.toInt());
        else if (auto* box = qobject_cast<QComboBox*>(widget))
            box->setCurrentIndex(value.toInt());
        else
            type(widget, value.toString());
    }

    /** @return what a control shows: bool, number, text or time. */
    QVariant value(const char* name) const
    {
        const auto* widget = control(name);
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            return button->isChecked();
        if (const auto* time = qobject_cast<const QTimeEdit*>(widget))
            return time->time();
        if (const auto* number = qobject_cast<const QDoubleSpinBox*>(widget))
            return number->value();
        if (const auto* box = qobject_cast<const QComboBox*>(widget))
            return box->currentIndex();
        if (const auto* edit = qobject_cast<const QLineEdit*>(widget))
            return edit->text();
        return widget->property("value");
    }

    /** Clicks on a row of a list. */
    void selectRow(const char* tree, int row) const
    {
        auto* view = control<QTreeView>(tree);
        bringUp(view);
        const QModelIndex index = view->model()->index(row, 0);
        view->scrollTo(index);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, view->visualRect(index).center());
    }
    /** @return the rows of a list, their columns joined with "|". */
    QStringList rows(const char* tree) const
    {
        const QAbstractItemModel* model = control<QTreeView>(tree)->model();
        QStringList texts;
        for (int row = 0; row < model->rowCount(); ++row) {
            QStringList columns;
            for (int column = 0; column < model->columnCount(); ++column)
                columns.append(model->index(row, column).data().toString());
            texts.append(columns.join('|'));
        }
        return texts;
    }
    /** @return the row that is selected in a list; -1 for none. */
    int selectedRow(const char* tree) const
    {
        const QModelIndexList rows = control<QTreeView>(tree)->selectionModel()->selectedRows();
        return rows.isEmpty() ? -1 : rows.first().row();
    }

    /** @return the names of the controls that the tab key stops at, from one until it is back there. */
    QStringList walkFrom(const QString& first) const
    {
        control(qPrintable(first))->setFocus();
        QStringList names;
        do {
            QWidget* focus = QApplication::focusWidget();
            names.append(focus->objectName());
            // A time field walks through its parts first.
            for (int part = 0; part < 4 && QApplication::focusWidget() == focus; ++part)
                QTest::keyClick(focus, Qt::Key_Tab);
        } while (QApplication::focusWidget()->objectName() != first && names.size() < 100);
        return names;
    }

    /** Types over what stands there and leaves the field. */
    static void type(QWidget* field, const QString& text)
    {
        field->setFocus();
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        if (text.isEmpty())
            QTest::keyClick(field, Qt::Key_Delete);
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Tab);
    }

private:
    /** Turns to the tab that the control lies on. */
    void bringUp(const QWidget* widget) const
    {
        for (auto* tabs : m_dialog->findChildren<QTabWidget*>()) {
            for (int tab = 0; tab < tabs->count(); ++tab) {
                if (tabs->widget(tab)->isAncestorOf(widget))
                    tabs->setCurrentIndex(tab);
            }
        }
    }

    static void toggle(QAbstractButton* button, bool on)
    {
        if (button->isChecked() != on)
            QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button->height() / 2));
    }

    static void enterTime(QTimeEdit* edit, const QTime& time)
    {
        edit->setFocus();
        if (edit->isEnabled())
            edit->setTime(time);
    }

    static void slide(QSlider* slider, int value)
    {
        for (int step = 0; slider->value() != value && step <= slider->maximum(); ++step)
            QTest::keyClick(slider, slider->value() < value ? Qt::Key_Right : Qt::Key_Left);
    }

    QDialog* m_dialog;
};

#endif
