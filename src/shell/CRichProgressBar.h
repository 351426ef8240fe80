#ifndef TORNIK_SHELL_CRICHPROGRESSBAR_H
#define TORNIK_SHELL_CRICHPROGRESSBAR_H

#include <QColor>
#include <QFont>
#include <QProgressBar>
#include <QString>

/**
 * A bar in a colour of its own that turns red, with its text, at a threshold and below.
 *
 * Its looks are a style sheet, which is set anew only when it changes. Owned by its Qt parent.
 */
class CRichProgressBar : public QProgressBar
{
    Q_OBJECT

public:
    explicit CRichProgressBar(QWidget* parent = nullptr);

    /** The bar takes the colour, with grey text, until the next setValue(). */
    void setColorName(const QString& name);
    QString colorName() const { return m_colorName; }
    /** A bar that is red takes it at once. */
    void setRedColorName(const QString& name);
    QString redColorName() const { return m_redColorName; }
    /** @param height pixels */
    void setMaxHeight(int height) { setMaximumHeight(height); }
    void setFontSize(int pointSize);
    int redThreshold() const { return m_redThreshold; }

public Q_SLOTS:
    /** Hides that of QProgressBar: restyles the bar for the value. */
    void setValue(int value);
    void setRedThreshold(int value);
    /** @param size divisor of the border and its rounding, 1 or more; a smaller one is ignored */
    void setSize(int size);

private:
    void restyle();

    QColor m_color{Qt::black}; ///< of m_colorName
    QFont m_font;
    int m_redThreshold = 20;
    QString m_colorName = QStringLiteral("black");
    QString m_redColorName = QStringLiteral("red");
    int m_size = 1;
    bool m_red = false; ///< the present style is the red one
};

#endif
