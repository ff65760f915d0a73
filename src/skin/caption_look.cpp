#include "skin/caption_look.h"

#include <cmath>

QFont captionFont(QFont font)
{
    if (font.pointSizeF() > 0) {
        font.setPointSize(qMax(1, static_cast<int>(std::lround(font.pointSizeF()))));
    }
    font.setWeight(font.bold() ? QFont::Bold : QFont::Normal);
    return font;
}
