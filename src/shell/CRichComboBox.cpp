#include "shell/CRichComboBox.h"

#include <QLineEdit>
#include <QPalette>

namespace {

void setBrushOfAllGroups(QPalette& palette, QPalette::ColorRole role, const QBrush& brush)
{
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        palette.setBrush(group, role, brush);
}

} // namespace

CRichComboBox::CRichComboBox(QWidget* parent) : QComboBox(parent), m_font(font())
{
    m_font.setWeight(QFont::Normal);
    m_font.setPointSize(m_pointSize);
    setFont(m_font);
    setFrame(false);
    QPalette colors = palette();
    setBrushOfAllGroups(colors, QPalette::Highlight, colors.brush(QPalette::Base));
    setPalette(colors);
}

void CRichComboBox::setPointSize(int pointSize)
{
    m_pointSize = pointSize;
    m_font.setPointSize(pointSize);
    setFont(m_font);
    if (lineEdit())
        lineEdit()->setFont(m_font); // a style sheet keeps it from taking over that of the box
}

void CRichComboBox::setColor(const QString& name)
{
    if (name == m_colorName)
        return;
    m_colorName = name;
    m_color = QColor(name);
    QPalette colors = palette();
    QBrush text = colors.brush(QPalette::Text);
    text.setColor(m_color);
    setBrushOfAllGroups(colors, QPalette::Text, text);
    setBrushOfAllGroups(colors, QPalette::HighlightedText, text);
    setPalette(colors);
    setStyleSheet(QStringLiteral("color: %1; selection-color: %1;").arg(name));
    update();
}
