#include "platform/text_looks.h"

#include <QBrush>

QColor toColor(ColourValue colour)
{
    return QColor::fromRgb(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

void TextLooks::setBaseFont(const QFont &font)
{
    m_baseFont = font;
    forget();
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
