#ifndef TORNIK_SHELL_CCHARACTERPICTURES_H
#define TORNIK_SHELL_CCHARACTERPICTURES_H

#include <QColor>
#include <QFont>
#include <QHash>
#include <QPixmap>
#include <QString>

class QPainter;

/**
 * Keeps the characters of a font in a colour as pictures and puts texts together from them: the
 * characters of large figures are outlines, which are costly to fill anew with every lap.
 * A value inside a label.
 */
class CCharacterPictures
{
public:
    /** Forgets all pictures if one of the three is another one. */
    void setLook(const QFont& font, const QColor& color, qreal devicePixelRatio);

    /**
     * @param width the text's width in the font; pixels
     * @return whether the text is no more than its characters side by side, unlike a kerned word.
     */
    bool canDraw(const QString& text, int width);
    /** Draws a text that canDraw(), with its upper left corner at the painter's origin. */
    void draw(QPainter& painter, const QString& text);

private:
    struct CCharacter
    {
        qreal advance;   ///< to the next character
        int left = 0;    ///< of the picture, from where the character begins
        QPixmap picture; ///< null until it is needed
    };

    CCharacter& character(QChar letter);
    void drawPicture(CCharacter& character, QChar letter) const;

    QFont m_font;
    QColor m_color;
    qreal m_devicePixelRatio = 1;
    QHash<QChar, CCharacter> m_characters;
};

#endif
