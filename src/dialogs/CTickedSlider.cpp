#include "dialogs/CTickedSlider.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>

namespace {

constexpr int TickHeight = 3; ///< pixels

} // namespace

CTickedSlider::CTickedSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent)
{
    setTickPosition(QSlider::TicksBelow);
}

void CTickedSlider::paintEvent(QPaintEvent* event)
{
    QSlider::paintEvent(event);
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText)); // dimmed where it can't be used
    for (int value = minimum(); value <= maximum(); value += qMax(1, tickInterval())) {
        const int x = placeOf(value);
        painter.drawLine(x, height() - TickHeight, x, height() - 1);
    }
}

int CTickedSlider::placeOf(int value) const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    option.sliderPosition = value;
    option.sliderValue = value;
    return style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this).center().x();
}
