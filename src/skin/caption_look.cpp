#include "skin/caption_look.h"

#include <cmath>

namespace {

const QString mark = QStringLiteral("[*]"); // stands for an unsaved document, unless it is doubled

} // namespace

QFont captionFont(QFont font)
{
    if (font.pointSizeF() > 0) {
        font.setPointSize(qMax(1, static_cast<int>(std::lround(font.pointSizeF()))));
    }
    font.setWeight(font.bold() ? QFont::Bold : QFont::Normal);
    return font;
}

QString titleFor(QString caption)
{
    return caption.replace(mark, QString(mark % mark));
}

QString captionOf(QString title)
{
    return title.replace(QString(mark % mark), mark);
}
