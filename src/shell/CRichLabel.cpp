#include "shell/CRichLabel.h"

#include <QFontMetrics>
#include <QPainter>

namespace {

constexpr int NarrowestStretch = 50;

/** @return the font in pixels, of which 96 are 72 points. */
QFont inPixels(const QFont& font)
{
    QFont pixelFont = font;
    if (font.pointSize() > 0)
        pixelFont.setPixelSize(qRound(font.pointSize() * 96 / 72.0));
    return pixelFont;
}

} // namespace

CRichLabel::CRichLabel(QWidget* parent) : QWidget(parent), m_paintFont(inPixels(m_font))
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    // It fills its own background, so that no ancestor has to paint below it.
    setAttribute(Qt::WA_OpaquePaintEvent);
}

CRichLabel::CRichLabel(const QString& text, const QColor& color, QWidget* parent) : CRichLabel(parent)
{
    m_text = text;
    m_color = color;
}

void CRichLabel::setText(const QString& text)
{
    if (text == m_text)
        return;
    m_text = text;
    m_textSize = QSize();
    update();
}

void CRichLabel::setPointSize(int pointSize)
{
    m_pointSize = pointSize;
    restoreFont();
}

void CRichLabel::scaleFont(int percent)
{
    QFont font = m_font;
    font.setPointSize(percent * m_pointSize / 100);
    applyFont(font);
}

void CRichLabel::restoreFont()
{
    QFont font = m_font;
    font.setPointSize(m_pointSize);
    applyFont(font);
}

void CRichLabel::setStretch(int percent)
{
    QFont font = m_font;
    font.setStretch(percent);
    applyFont(font);
}

int CRichLabel::fittingStretch(const QString& text, int percent) const
{
    QFont font = m_font;
    font.setPointSize(percent * m_pointSize / 100);
    font = inPixels(font);
    font.setStretch(100);
    const int inkWidth = QFontMetrics(font).tightBoundingRect(text).width();
    int stretch = qBound(NarrowestStretch, 100 * m_width / qMax(1, inkWidth), 100);
    font.setStretch(stretch);
    while (stretch > NarrowestStretch && isCut(text, font))
        font.setStretch(--stretch);
    return stretch;
}

void CRichLabel::setColor(const QColor& color)
{
    if (color == m_color)
        return;
    m_color = color;
    update();
}

void CRichLabel::setFont(const QFont& font)
{
    m_pointSize = font.pointSize();
    applyFont(font);
}

void CRichLabel::setWidth(int width)
{
    if (width == m_width)
        return;
    m_width = width;
    updateGeometry();
    update();
}

void CRichLabel::setHeight(int height)
{
    if (height == m_height)
        return;
    m_height = height;
    updateGeometry();
    update();
}

void CRichLabel::paintEvent(QPaintEvent*)
{
    resize(sizeHint());
    measure();
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    painter.translate(QPoint((m_width - m_textSize.width()) / 2, (m_height - m_textSize.height()) / 2));
    m_characters.setLook(m_paintFont, m_color, devicePixelRatioF());
    if (m_characters.canDraw(m_text, m_textSize.width()))
        m_characters.draw(painter, m_text);
    else
        drawWholeText(painter);
}

void CRichLabel::drawWholeText(QPainter& painter) const
{
    painter.setPen(m_color);
    painter.setFont(m_paintFont);
    // The rectangle is a pixel narrower than the text: the label cuts, not the rectangle.
    painter.drawText(QRect(0, 0, m_textSize.width() - 1, m_textSize.height() - 1),
                     Qt::AlignCenter | Qt::TextDontClip, m_text);
}

void CRichLabel::applyFont(const QFont& font)
{
    if (font == m_font)
        return;
    m_font = font;
    m_paintFont = inPixels(font);
    m_textSize = QSize();
    update();
}

void CRichLabel::measure()
{
    if (m_textSize.isValid())
        return;
    const QFontMetrics metrics(m_paintFont);
    m_textSize = QSize(metrics.horizontalAdvance(m_text), metrics.height());
}

bool CRichLabel::isCut(const QString& text, const QFont& font) const
{
    const QFontMetrics metrics(font);
    const int left = (m_width - metrics.horizontalAdvance(text)) / 2;
    const QRect ink = metrics.tightBoundingRect(text).translated(left, 0);
    // The metrics are rounded; smooth edges may reach half a pixel beyond them.
    return ink.left() < 1 || ink.right() >= m_width;
}
