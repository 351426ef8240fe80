#ifndef TORNIK_TESTS_SUPPORT_CODEPICTURES_H
#define TORNIK_TESTS_SUPPORT_CODEPICTURES_H

#include "qr/QZXing.h"

#include <QImage>
#include <QPainter>
#include <QRandomGenerator>
#include <QString>
#include <QTransform>
#include <QVector>

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

/** What a hand, a lamp and a cheap camera do to a printed code. The same pictures in every run. */
namespace CodePictures {

constexpr int Width = 1280;
constexpr int Height = 720;

struct Picture
{
    std::function<QImage()> make; ///< 8 bits of grey; takes its time
    QString text;
};

/** One kind of distortion, from hardly any to more than anybody could read. */
struct Kind
{
    QString name;
    QString levels;
    std::vector<Picture> pictures;
};

inline QVector<QString> texts()
{
    return {QStringLiteral("<drv>Anna"), QStringLiteral("<car>Müllers Größter 07"),
            QStringLiteral("<car>") + QStringLiteral("Adelheid von Ückermünde ").repeated(3)};
}

/** @return the code on paper as it is printed: in a grey frame, with a narrow margin. */
inline QImage card(const QString& text)
{
    constexpr int Side = 480;
    constexpr int Margin = Side * 3 / 60;
    QImage image(Side * 3, Side * 3 / 2, QImage::Format_RGB32);
    image.fill(QColor(240, 240, 236));
    QPainter painter(&image);
    const QRect code(image.rect().center() - QPoint(Side / 2, Side / 2), QSize(Side, Side));
    painter.drawImage(code, QZXing::encodeData(text, QZXing::EncodeQrCode, QSize(240, 240),
                                               QZXing::CorrectionLow, false, false));
    painter.setPen(QPen(Qt::gray, Side / 60));
    painter.drawRect(code.adjusted(-Margin, -Margin, Margin, Margin));
    return image;
}

/** @param place from the middle of the card of 480 dots a code to the middle of the picture */
inline QImage scene(const QString& text, const QTransform& place)
{
    QImage image(Width, Height, QImage::Format_RGB32);
    image.fill(QColor(96, 104, 100));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (int stripe = 0; stripe < 12; ++stripe) // a shelf behind the hand
        painter.fillRect(stripe * 110, 0, 40, Height, QColor(60 + stripe * 13, 80, 170 - stripe * 9));
    const QImage paper = card(text);
    // Scaled down in steps, as a lens does it: no dot of the paper is left out.
    QTransform whole = place;
    const double scale = std::sqrt(std::abs(place.determinant()));
    const QImage reduced =
        scale < 1.0 ? paper.scaled(paper.size() * scale, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                    : paper;
    whole.scale(double(paper.width()) / reduced.width(), double(paper.height()) / reduced.height());
    painter.setTransform(whole * QTransform::fromTranslate(Width / 2.0, Height / 2.0));
    painter.drawImage(QPointF(-reduced.width() / 2.0, -reduced.height() / 2.0), reduced);
    return image.convertToFormat(QImage::Format_Grayscale8);
}

/** @param side of the code in dots */
inline QTransform upright(double side, double angle = 0.0)
{
    return QTransform().rotate(angle).scale(side / 480, side / 480);
}

template <typename Change>
QImage eachDot(QImage image, Change change)
{
    for (int y = 0; y < image.height(); ++y) {
        uchar* line = image.scanLine(y);
        for (int x = 0; x < image.width(); ++x)
            line[x] = uchar(std::clamp(int(std::lround(change(double(line[x]), x, y))), 0, 255));
    }
    return image;
}

inline QImage noisy(const QImage& image, double deviation, quint32 seed)
{
    QRandomGenerator random(seed);
    return eachDot(image, [&](double value, int, int) {
        double sum = 0.0; // of twelve, next to normally distributed
        for (int i = 0; i < 12; ++i)
            sum += random.generateDouble();
        return value + (sum - 6.0) * deviation;
    });
}

inline QImage blurred(const QImage& image, double deviation)
{
    const int radius = int(std::ceil(3 * deviation));
    std::vector<double> weights;
    double total = 0.0;
    for (int i = -radius; i <= radius; ++i) {
        weights.push_back(std::exp(-i * i / (2 * deviation * deviation)));
        total += weights.back();
    }
    const auto pass = [&](const QImage& from, int dx, int dy) {
        return eachDot(from, [&](double, int x, int y) {
            double sum = 0.0;
            for (int i = -radius; i <= radius; ++i) {
                const int column = std::clamp(x + i * dx, 0, Width - 1);
                const int row = std::clamp(y + i * dy, 0, Height - 1);
                sum += weights[size_t(i + radius)] * from.constScanLine(row)[column];
            }
            return sum / total;
        });
    };
    return pass(pass(image, 1, 0), 0, 1);
}

inline QImage moved(const QImage& image, int dots)
{
    return eachDot(image, [&](double, int x, int y) {
        double sum = 0.0;
        for (int i = 0; i < dots; ++i)
            sum += image.constScanLine(y)[std::clamp(x + i - dots / 2, 0, Width - 1)];
        return sum / dots;
    });
}

inline QImage dark(const QImage& image, double range, quint32 seed)
{
    return noisy(eachDot(image, [&](double value, int, int) { return 8 + value * range / 255; }), 1.5, seed);
}

/** A lamp that shines back from the paper. @param strength 1 turns its middle to white */
inline QImage glaring(const QImage& image, double strength, QPointF middle, double radius)
{
    return eachDot(image, [&](double value, int x, int y) {
        const double distance = std::hypot(x - middle.x(), y - middle.y()) / radius;
        return value + 255 * strength * std::exp(-distance * distance);
    });
}

inline QImage inverted(QImage image)
{
    image.invertPixels();
    return image;
}

inline QTransform tilted(double side, double angle, Qt::Axis axis, double turn)
{
    QTransform tilt;
    tilt.rotate(turn, Qt::ZAxis);
    tilt.rotate(angle, axis); // seen from 1024 dots away
    return QTransform().scale(side / 480, side / 480) * tilt;
}

/** Each text at each level. @param make keeps no reference to anything */
template <typename Level, typename Make>
std::vector<Picture> overLevels(const std::vector<Level>& levels, Make make)
{
    std::vector<Picture> pictures;
    quint32 seed = 1;
    for (const Level& level : levels) {
        for (const QString& text : texts())
            pictures.push_back({[=, seed = seed++] { return make(text, level, seed); }, text});
    }
    return pictures;
}

inline std::vector<double> range(double from, double to, double step)
{
    std::vector<double> values;
    for (int i = 0; from + i * step <= to + step / 2; ++i)
        values.push_back(from + i * step);
    return values;
}

inline std::vector<Picture> tiltedPictures()
{
    std::vector<Picture> all;
    for (const auto axis : {Qt::XAxis, Qt::YAxis}) {
        for (const double turn : {0.0, 30.0}) {
            const auto some = overLevels(range(20, 70, 10), [=](const QString& text, double angle, quint32) {
                return scene(text, tilted(260, angle, axis, turn));
            });
            all.insert(all.end(), some.begin(), some.end());
        }
    }
    return all;
}

inline std::vector<Picture> glaringPictures()
{
    std::vector<Picture> all;
    for (const QPointF middle : {QPointF(800, 250), QPointF(700, 400)}) {
        for (const double radius : {120.0, 400.0}) {
            const auto some =
                overLevels(range(0.4, 2, 0.4), [=](const QString& text, double strength, quint32) {
                    return glaring(scene(text, upright(240, 8)), strength, middle, radius);
                });
            all.insert(all.end(), some.begin(), some.end());
        }
    }
    return all;
}

/** @return a card held askew under a lamp at the right. */
inline QImage shaded(const QString& text, double angle, quint32 seed)
{
    const QImage held = scene(text, tilted(200, 15 + angle / 20, Qt::YAxis, angle));
    const QImage lit =
        eachDot(held, [](double value, int x, int) { return value * (0.25 + 0.5 * x / Width); });
    return noisy(blurred(lit, 1.0), 6, seed);
}

inline std::vector<Kind> kinds()
{
    return {
        {"rotation", "0 to 345 degrees, each 15",
         overLevels(range(0, 345, 15), [](const QString& text, double angle,
                                          quint32) { return scene(text, upright(240, angle)); })},
        {"tilt", "20 to 70 degrees, four directions", tiltedPictures()},
        {"blur", "deviation 1 to 6 dots",
         overLevels(range(1, 6, 0.5),
                    [](const QString& text, double deviation, quint32) {
                        return blurred(scene(text, upright(240, 5)), deviation);
                    })},
        {"movement", "3 to 18 dots",
         overLevels(range(3, 18, 1.5),
                    [](const QString& text, double dots, quint32) {
                        return moved(scene(text, upright(240, 5)), int(dots));
                    })},
        {"noise", "deviation 15 to 120 of 255",
         overLevels(range(15, 120, 7.5),
                    [](const QString& text, double deviation, quint32 seed) {
                        return noisy(scene(text, upright(240, 8)), deviation, seed);
                    })},
        {"low light", "5 to 60 of 255 between black and white, noise 1.5",
         overLevels(range(5, 60, 5),
                    [](const QString& text, double levels, quint32 seed) {
                        return dark(scene(text, upright(240, 8)), levels, seed);
                    })},
        {"glare", "lamp of strength 0.4 to 2, at the edge and inside", glaringPictures()},
        {"inverted", "0 to 345 degrees, each 15",
         overLevels(range(0, 345, 15), [](const QString& text, double angle,
                                          quint32) { return inverted(scene(text, upright(240, angle))); })},
        {"small", "24 to 120 dots a side, noise 3",
         overLevels(range(24, 120, 8),
                    [](const QString& text, double side, quint32 seed) {
                        return noisy(scene(text, upright(side, 10)), 3, seed);
                    })},
        {"small in low light", "60 to 140 dots a side, 14 of 255 between black and white, noise 1.5",
         overLevels(range(60, 140, 10),
                    [](const QString& text, double side, quint32 seed) {
                        return dark(scene(text, upright(side, 10)), 14, seed);
                    })},
        {"all at once", "tilted, turned, dim, noisy, lit from one side",
         overLevels(range(0, 330, 30), shaded)},
    };
}

} // namespace CodePictures

#endif
