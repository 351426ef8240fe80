#ifndef TORNIK_SHELL_CRICHLABEL_H
#define TORNIK_SHELL_CRICHLABEL_H

#include "shell/CCharacterPictures.h"

#include <QColor>
#include <QFont>
#include <QString>
#include <QWidget>

/**
 * A label of a fixed size that paints its text centred in itself; a text that is too wide is cut on
 * both sides.
 *
 * Made for figures that change with every lap: a new text repaints this widget and nothing else,
 * and never moves a layout. A setter that changes nothing costs nothing. Its size is given in
 * pixels and its font in points, so that a point is always 1/72 of 96 pixels, whatever the screen
 * says of itself: figures that fit on one screen fit on all. Owned by its Qt parent.
 */
class CRichLabel : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
    Q_PROPERTY(QColor color READ color)

public:
    explicit CRichLabel(QWidget* parent = nullptr);
    CRichLabel(const QString& text, const QColor& color, QWidget* parent = nullptr);

    QString text() const { return m_text; }
    void setText(const QString& text);

    /** @return the size that restoreFont() goes back to, in points. */
    int pointSize() const { return m_pointSize; }
    void setPointSize(int pointSize);
    /** Shows the text in a percentage of pointSize(), cut to whole points. */
    void scaleFont(int percent);
    void restoreFont();
    /** @param percent width of the letters, 100 as designed */
    void setStretch(int percent);
    /**
     * @param percent size of the font as of scaleFont()
     * @return the widest stretch up to 100 in which no pixel of the text is cut on its sides.
     */
    int fittingStretch(const QString& text, int percent = 100) const;

    QColor color() const { return m_color; }
    void setColor(const QColor& color);
    void setColor(const QString& name) { setColor(QColor(name)); }

    /** Hides the font of QWidget: a style sheet doesn't touch this one. */
    const QFont& font() const { return m_font; }
    /** Its size becomes pointSize(). */
    void setFont(const QFont& font);

    /** @param width pixels */
    void setWidth(int width);
    /** @param height pixels */
    void setHeight(int height);

    QSize sizeHint() const override { return {m_width, m_height}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void applyFont(const QFont& font);
    void measure();
    void drawWholeText(QPainter& painter) const;
    bool isCut(const QString& text, const QFont& font) const;

    int m_pointSize = 10;
    QColor m_color;
    QString m_text;
    QFont m_font{QStringLiteral("Arial"), 10, QFont::Bold};
    int m_width = 182;
    int m_height = 85;
    QFont m_paintFont; ///< m_font in pixels
    QSize m_textSize;  ///< of the text in the font; invalid until measured
    CCharacterPictures m_characters;
};

#endif
