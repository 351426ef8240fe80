#ifndef TORNIK_TESTS_SUPPORT_LAMPLETTERS_H
#define TORNIK_TESTS_SUPPORT_LAMPLETTERS_H

#include "images/Images.h"
#include "shell/CLights.h"
#include "support/Ink.h"

/** @return the row as it paints itself, a letter a lamp: R, G, o for off, ? for anything else. */
inline QString lampLetters(CLights& lights)
{
    initImages();
    const auto load = [](const char* name) {
        return QImage(QLatin1String(name)).convertToFormat(QImage::Format_RGB32);
    };
    const QImage red = load(":/images/ampel_rot.bmp");
    const QImage green = load(":/images/ampel_gruen.bmp");
    const QImage off = load(":/images/ampel_aus.bmp");
    const QImage picture = pictureOf(lights);
    QString letters;
    for (int x = 0; x < picture.width(); x += off.width()) {
        const QImage lamp = picture.copy(x, 0, off.width(), off.height());
        letters += lamp == red ? 'R' : lamp == green ? 'G' : lamp == off ? 'o' : '?';
    }
    return letters;
}

#endif
