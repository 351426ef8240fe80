#ifndef TORNIK_WIZARD_FITTINGFONT_H
#define TORNIK_WIZARD_FITTINGFONT_H

class QLineEdit;
class QString;

/**
 * Makes the letters of a narrow field so small that its longest text shows whole.
 * @param edit with its maximum width set
 */
void fitFont(QLineEdit* edit, const QString& longest);

#endif
