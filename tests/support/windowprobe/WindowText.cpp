#include "WindowText.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QProgressBar>
#include <QRegularExpression>

namespace WindowText {

namespace {

void describeActions(const QList<QAction*>& actions, QStringList& lines)
{
    for (const QAction* action : actions) {
        if (!action->isVisible() || action->isSeparator())
            continue;
        lines.append(QStringLiteral("menu %1").arg(action->text()));
        if (action->menu())
            describeActions(action->menu()->actions(), lines);
    }
}

QImage picture(const char* fileName)
{
    return QImage(QLatin1String(fileName)).convertToFormat(QImage::Format_RGB32);
}

/** @return the lamps as they are painted, a letter each: R, G, o for off, ? for anything else. */
QString lamps(QWidget& lights)
{
    const QImage red = picture(":/images/ampel_rot.bmp");
    const QImage green = picture(":/images/ampel_gruen.bmp");
    const QImage off = picture(":/images/ampel_aus.bmp");
    const QImage row = lights.grab().toImage().convertToFormat(QImage::Format_RGB32);
    QString letters;
    for (int x = 0; !off.isNull() && x < row.width(); x += off.width()) {
        const QImage lamp = row.copy(x, 0, off.width(), off.height());
        letters += lamp == red ? 'R' : lamp == green ? 'G' : lamp == off ? 'o' : '?';
    }
    return letters;
}

QString colorName(const QWidget* widget, QPalette::ColorRole role)
{
    return widget->palette().color(role).name();
}

/** @return text and colours of a field of a panel. */
QString field(const QWidget* widget)
{
    if (const auto* box = qobject_cast<const QComboBox*>(widget))
        return QStringLiteral("%1 %2 %3")
            .arg(box->currentText(), colorName(box, QPalette::Text), box->styleSheet());
    if (const auto* bar = qobject_cast<const QProgressBar*>(widget))
        return QStringLiteral("%1 %2 %3").arg(bar->value()).arg(bar->text(), bar->styleSheet());
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        return button->styleSheet();
    return QStringLiteral("%1 %2").arg(widget->property("text").toString(),
                                       widget->property("color").value<QColor>().name());
}

QString place(const QWidget* widget)
{
    const QPoint corner = widget->mapTo(widget->window(), QPoint(0, 0));
    return QStringLiteral("%1,%2 %3x%4")
        .arg(corner.x())
        .arg(corner.y())
        .arg(widget->width())
        .arg(widget->height());
}

/** @return a line for each visible field of the panels. */
QStringList describePanels(const QWidget& window, QString (*describe)(const QWidget*))
{
    QStringList lines;
    const QRegularExpression name("^(track|legend)[0-9]+$");
    for (const QWidget* panel : window.findChildren<QWidget*>(name)) {
        if (!panel->isVisible())
            continue;
        for (const QWidget* widget : panel->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (widget->isVisible())
                lines.append(QStringLiteral("%1 %2 %3")
                                 .arg(panel->objectName(), widget->objectName(), describe(widget)));
        }
    }
    return lines;
}

void describeInfo(const QWidget& frame, QStringList& lines)
{
    for (const QLabel* label : frame.findChildren<QLabel*>()) {
        if (label->isVisible())
            lines.append(QStringLiteral("info %1 %2 %3 %4")
                             .arg(label->objectName(), label->text(), label->styleSheet(),
                                  colorName(label, QPalette::WindowText)));
    }
}

} // namespace

QWidget* mainWindow()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == QLatin1String("mainDialog") && window->isVisible())
            return window;
    }
    return nullptr;
}

QStringList ofWindow(const QWidget& window)
{
    QStringList lines{window.isFullScreen() ? QStringLiteral("window full screen")
                                            : QStringLiteral("window framed")};
    for (const QMenuBar* bar : window.findChildren<QMenuBar*>())
        describeActions(bar->actions(), lines);
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        if (label->isVisible())
            lines.append(QStringLiteral("label %1 %2").arg(label->objectName(), label->text()));
    }
    for (const QComboBox* box : window.findChildren<QComboBox*>()) {
        if (box->isVisible())
            lines.append(
                QStringLiteral("box %1 %2 %3")
                    .arg(box->objectName(), box->isEnabled() ? "free" : "locked", box->currentText()));
    }
    return lines;
}

QStringList ofDashboard(QWidget& window)
{
    QStringList lines;
    if (auto* lights = window.findChild<QWidget*>(QStringLiteral("lights")))
        lines.append(QStringLiteral("lights %1").arg(lamps(*lights)));
    lines += describePanels(window, field);
    if (const auto* frame = window.findChild<QWidget*>(QStringLiteral("infoFrame")))
        describeInfo(*frame, lines);
    return lines;
}

QStringList ofPlaces(const QWidget& window)
{
    return QStringList{QStringLiteral("window %1").arg(place(&window))} + describePanels(window, place);
}

QStringList ofBoxes()
{
    QStringList lines;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        const auto* box = qobject_cast<const QMessageBox*>(window);
        if (!box || !box->isVisible())
            continue;
        lines.append(QStringLiteral("box %1").arg(box->text()));
        for (const QAbstractButton* button : box->buttons())
            lines.append(QStringLiteral("button %1").arg(button->text()));
    }
    return lines;
}

} // namespace WindowText
