#ifndef TORNIK_SHELL_DIALOGSTYLE_H
#define TORNIK_SHELL_DIALOGSTYLE_H

class QString;

/**
 * The style of a dialog with controls, over that of the dashboard: there a field has no edge, a tick
 * no box and a disabled control looks like any other, all black on black. For QWidget::setStyleSheet()
 * of the dialog itself.
 */
QString dialogStyleSheet();

#endif
