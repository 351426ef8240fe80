#ifndef TORNIK_TESTS_WINDOWTEXT_H
#define TORNIK_TESTS_WINDOWTEXT_H

#include <QStringList>

class QWidget;

/** What a window of the program shows, in words; no class of the program is known here. */
namespace WindowText {

/** @return the main window that is shown; null without one. */
QWidget* mainWindow();

/** @return frame, menus, labels and boxes, a line each. */
QStringList ofWindow(const QWidget& window);

/**
 * @return the dashboard as the spectators see it: each visible field of lights, panels and info frame
 * with its text and its colours, a line each. Where two screens show the same race, it is the same.
 */
QStringList ofDashboard(QWidget& window);

/** @return the window's size and where each visible field of the panels lies, as "track1 lapCount 10,20
 * 91x42". */
QStringList ofPlaces(const QWidget& window);

/** @return the texts and buttons of all boxes that stand in front of the window, a line each. */
QStringList ofBoxes();

} // namespace WindowText

#endif
