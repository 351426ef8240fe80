#include "wizard/FittingFont.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QLineEdit>

namespace {

constexpr int Edges = 2 * (1 + 2) + 1; ///< the frame and the margin on both sides, and the cursor
constexpr int SmallestSize = 8;        ///< pixels; smaller letters can't be read

} // namespace

void fitFont(QLineEdit* edit, const QString& longest)
{
    QFont font = edit->font();
    for (int size = QFontInfo(font).pixelSize(); size > SmallestSize; --size) {
        if (QFontMetrics(font).horizontalAdvance(longest) + Edges <= edit->maximumWidth())
            break;
        font.setPixelSize(size - 1);
    }
    edit->setFont(font);
}
