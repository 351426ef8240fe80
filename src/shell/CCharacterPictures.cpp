#include "shell/CCharacterPictures.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QtMath>

#include <algorithm>

namespace {

/** Beyond Latin letters a text may be more than its characters side by side. */
bool isLatin(QChar letter)
{
    return letter.unicode() < 0x250;
}

} // namespace

void CCharacterPictures::setLook(const QFont& font, const QColor& color, qreal devicePixelRatio)
{
    if (font == m_font && color == m_color && qFuzzyCompare(devicePixelRatio, m_devicePixelRatio))
        return;
    m_font = font;
    m_color = color;
    m_devicePixelRatio = devicePixelRatio;
    m_characters.clear();
}

bool CCharacterPictures::canDraw(const QString& text, int width)
{
    if (!std::all_of(text.begin(), text.end(), isLatin))
        return false;
    qreal sum = 0;
    for (const QChar letter : text)
        sum += character(letter).advance;
    return qAbs(sum - width) < 1; // the width is rounded
}

void CCharacterPictures::draw(QPainter& painter, const QString& text)
{
    qreal x = 0;
    for (const QChar letter : text) {
        CCharacter& drawn = character(letter);
        if (drawn.picture.isNull())
            drawPicture(drawn, letter);
        painter.drawPixmap(qRound(x) + drawn.left, 0, drawn.picture);
        x += drawn.advance;
    }
}

CCharacterPictures::CCharacter& CCharacterPictures::character(QChar letter)
{
    const auto found = m_characters.find(letter);
    if (found != m_characters.end())
        return found.value();
    return m_characters.insert(letter, {QFontMetricsF(m_font).horizontalAdvance(letter), 0, {}}).value();
}

void CCharacterPictures::drawPicture(CCharacter& character, QChar letter) const
{
    // Ink may reach beyond the character's own width, and smooth edges another pixel.
    const QFontMetricsF metrics(m_font);
    character.left = qFloor(qMin(0.0, metrics.leftBearing(letter))) - 1;
    const int right = qCeil(character.advance - qMin(0.0, metrics.rightBearing(letter))) + 1;
    character.picture = QPixmap(QSize(right - character.left, qCeil(metrics.height())) * m_devicePixelRatio);
    character.picture.setDevicePixelRatio(m_devicePixelRatio);
    character.picture.fill(Qt::transparent);
    QPainter painter(&character.picture);
    painter.setPen(m_color);
    painter.setFont(m_font);
    painter.drawText(QPointF(-character.left, metrics.ascent()), letter);
}
