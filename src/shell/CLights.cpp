#include "shell/CLights.h"

#include "images/Images.h"

#include <QPainter>

namespace {

constexpr int SetOneByOne = 65535;

QPixmap loadPicture(const char* fileName)
{
    initImages();
    return QPixmap(QLatin1String(fileName));
}

} // namespace

CLights::CLights(int count, QWidget* parent)
    : QWidget(parent),
      m_lightCount(qBound(1, count, 10)),
      m_red(loadPicture(":/images/ampel_rot.bmp")),
      m_green(loadPicture(":/images/ampel_gruen.bmp")),
      m_off(loadPicture(":/images/ampel_aus.bmp")),
      m_lights(m_lightCount, m_off)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void CLights::nextRed()
{
    if (m_redIndex < m_lightCount)
        m_lights[m_redIndex++] = m_red;
    update();
}

void CLights::allGreen()
{
    setAll(m_green);
}

void CLights::allRed()
{
    setAll(m_red);
}

void CLights::allOff()
{
    setAll(m_off);
}

void CLights::setRed(int index)
{
    if (m_redIndex != 0 && m_redIndex != SetOneByOne)
        return;
    m_lights[clampedIndex(index)] = m_red;
    m_redIndex = SetOneByOne;
    update();
}

void CLights::setOff(int index)
{
    m_lights[clampedIndex(index)] = m_off;
    update();
}

QSize CLights::sizeHint() const
{
    if (m_lightCount < 1)
        return {};
    return {m_off.width() * m_lightCount, m_off.height()};
}

void CLights::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    for (int i = 0; i < m_lightCount; ++i) {
        const QPixmap& picture = m_lights.at(i);
        painter.drawPixmap(picture.width() * i, 0, picture);
    }
}

void CLights::setAll(const QPixmap& picture)
{
    m_lights.fill(picture);
    m_redIndex = 0;
    update();
}

int CLights::clampedIndex(int index) const
{
    return qBound(0, index, m_lightCount - 1);
}
