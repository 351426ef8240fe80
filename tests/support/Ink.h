#ifndef TORNIK_TESTS_SUPPORT_INK_H
#define TORNIK_TESTS_SUPPORT_INK_H

#include <QColor>
#include <QImage>
#include <QRect>
#include <QSizePolicy>
#include <QWidget>

/**
 * @return the widget as it paints itself, one pixel of the picture a pixel of the widget; a widget of
 * a fixed size takes that first.
 */
inline QImage pictureOf(QWidget& widget)
{
    if (widget.sizePolicy() == QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed))
        widget.resize(widget.sizeHint());
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/** @return the smallest rectangle around all pixels that aren't @p background. */
inline QRect inkOf(const QImage& picture, const QColor& background)
{
    QRect ink;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != background.rgb())
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

#endif
