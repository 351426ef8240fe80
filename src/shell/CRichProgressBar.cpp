#include "shell/CRichProgressBar.h"

CRichProgressBar::CRichProgressBar(QWidget* parent) : QProgressBar(parent), m_font(font())
{
    m_font.setWeight(QFont::Normal);
    setFontSize(14);
}

void CRichProgressBar::setColorName(const QString& name)
{
    m_colorName = name;
    m_color = QColor(name);
    m_red = false;
    restyle();
}

void CRichProgressBar::setRedColorName(const QString& name)
{
    m_redColorName = name;
    if (m_red)
        restyle();
}

void CRichProgressBar::setFontSize(int pointSize)
{
    m_font.setPointSize(pointSize);
    setFont(m_font);
}

void CRichProgressBar::setValue(int value)
{
    m_red = value <= m_redThreshold;
    restyle();
    QProgressBar::setValue(value);
}

void CRichProgressBar::setRedThreshold(int value)
{
    m_redThreshold = value;
    if (this->value() >= minimum())
        setValue(this->value());
}

void CRichProgressBar::setSize(int size)
{
    if (size < 1 || size == m_size)
        return;
    m_size = size;
    if (!styleSheet().isEmpty())
        restyle();
}

void CRichProgressBar::restyle()
{
    const QString color = m_red ? m_redColorName : m_colorName;
    const QString textColor = m_red ? m_redColorName : QStringLiteral("#999999");
    const QString bar = QStringLiteral("QProgressBar {color: %1; border-radius: %2px; text-align: center; "
                                       "border: %3px solid %4; }")
                            .arg(textColor)
                            .arg(5 / m_size)
                            .arg(2 / m_size)
                            .arg(color);
    const QString chunk =
        QStringLiteral("QProgressBar::chunk { background-color: %1; margin: 0px; border-radius: %2px;}")
            .arg(color)
            .arg(3 / m_size);
    // A style sheet is costly to set, and nearly every new value keeps the style.
    if (styleSheet() != bar + chunk)
        setStyleSheet(bar + chunk);
}
