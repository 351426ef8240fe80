#include "wizard/FittingFont.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QLineEdit>

namespace {

constexpr int Edges = 2 * (1 + 2) + 1; ///< the frame and the margin on both sides, and the cursor
constexpr int SmallestSize = 8;        ///< pixels; smaller letters can't be read

QFont fittingFont(QFont font, const QString& text, int width)
{
    for (int size = QFontInfo(font).pixelSize(); size > SmallestSize; --size) {
        if (QFontMetrics(font).horizontalAdvance(text) + Edges <= width)
            break;
        font.setPixelSize(size - 1);
    }
    return font;
}

} // namespace

void keepTextFitting(QLineEdit* edit)
{
    const QFont usual = edit->font();
    edit->setMinimumHeight(edit->sizeHint().height()); // small letters leave the field as high as it was
    const auto fit = [edit, usual](const QString& text) {
        edit->setFont(fittingFont(usual, text, edit->maximumWidth()));
    };
    QObject::connect(edit, &QLineEdit::textChanged, edit, fit);
    fit(edit->text());
}
