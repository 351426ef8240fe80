#ifndef TORNIK_WIZARD_FITTINGFONT_H
#define TORNIK_WIZARD_FITTINGFONT_H

class QLineEdit;

/**
 * Lets a narrow field show its text whole, from now on: in smaller letters if it must be.
 * @param edit with its maximum width and its usual font set
 */
void keepTextFitting(QLineEdit* edit);

#endif
