#include "platform/text_looks.h"

#include <QBrush>
#include <QFontMetricsF>

QColor toColor(ColourValue colour)
{
    return QColor::fromRgb(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

ColourValue colourOf(const QColor &colour)
{
    return (colour.rgb() & 0xFF) << 16 | (colour.rgb() & 0xFF00) | (colour.rgb() >> 16 & 0xFF);
}

void TextLooks::setBaseFont(const QFont &font)
{
    m_baseFont = font;
    forget();
}

void TextLooks::forget()
{
    m_formats.clear();
    m_pictures.clear();
}

const QTextCharFormat &TextLooks::of(quint16 number)
{
    m_formats.resize(std::max(m_formats.size(), m_document.formatCount()));
    auto &look = m_formats[number];
    if (!look) {
        const TextFormat &format = m_document.format(number);
        QFont font = m_baseFont;
        if (const QString family = m_document.fonts().value(format.font); !family.isEmpty()) {
            font.setFamilies({family});
        }
        font.setPointSizeF(format.halfPoints / 2.0);
        font.setBold(format.bold);
        font.setItalic(format.italic);
        font.setUnderline(format.underline);
        font.setStrikeOut(format.strikeOut);
        look.emplace().setFont(font);
        if (format.colour != automaticColour) {
            look->setForeground(toColor(format.colour));
        }
        if (format.background != automaticColour) {
            look->setBackground(toColor(format.background));
        }
    }
    return *look;
}

const QTextCharFormat &TextLooks::ofPicture(quint16 number, quint16 picture)
{
    QTextCharFormat &look = m_pictures[{number, picture}];
    if (look.isEmpty()) {
        look = of(number);
        QFont font = look.font();
        const double own = QFontMetricsF(font).horizontalAdvance(placeholder);
        const double wanted = m_document.picture(picture).image.deviceIndependentSize().width();
        font.setLetterSpacing(QFont::AbsoluteSpacing, wanted - own);
        font.setUnderline(false);
        look.setFont(font);
    }
    return look;
}
