#include "shell/CRichLabel.h"

#include <QFontMetrics>
#include <QPainter>

CRichLabel::CRichLabel(QWidget* parent) : QWidget(parent)
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
    painter.translate((m_width - m_textSize.width()) / 2, (m_height - m_textSize.height()) / 2);
    painter.setPen(m_color);
    painter.setFont(m_font);
    painter.drawText(QRect(0, 0, m_textSize.width() - 1, m_textSize.height() - 1),
                     Qt::AlignCenter | Qt::TextDontClip, m_text);
}

void CRichLabel::applyFont(const QFont& font)
{
    if (font == m_font)
        return;
    m_font = font;
    m_textSize = QSize();
    update();
}

void CRichLabel::measure()
{
    if (m_textSize.isValid())
        return;
    const QFontMetrics metrics(m_font);
    m_textSize = QSize(metrics.horizontalAdvance(m_text), metrics.height());
}
