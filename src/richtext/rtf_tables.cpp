#include "richtext/rtf_tables.h"

#include "richtext/rtf_code_pages.h"

#include <algorithm>
#include <utility>

ColourValue RtfTables::colour(qint32 number) const
{
    return number >= 0 && std::size_t(number) < m_colours.size() ? m_colours[std::size_t(number)]
                                                                 : automaticColour;
}

void RtfTables::takeFontNames(QStringView text)
{
    for (const QChar c : text) {
        if (c == u';') {
            finishFont();
        } else {
            m_fontName += c;
        }
    }
}

void RtfTables::finishFont()
{
    if (m_fontIndex < 0) {
        return;
    }
    const int page = m_fontCharset > 1 ? codePageOfCharset(m_fontCharset, 0) : 0;
    m_fonts.insert(m_fontIndex, {m_document.fontNumber(m_fontName.trimmed()), page});
    m_fontName.clear();
    m_fontCharset = 1;
    m_fontIndex = -1;
}

void RtfTables::takeColours(QStringView text)
{
    for (const QChar c : text) {
        if (c == u';') {
            m_colours.push_back(std::exchange(m_colour, automaticColour));
        }
    }
}

void RtfTables::apply(const RtfWord &word)
{
    const auto setComponent = [&](unsigned shift) {
        const ColourValue before = m_colour == automaticColour ? 0 : m_colour;
        m_colour = (before & ~(0xFFU << shift)) |
                   (static_cast<ColourValue>(std::clamp(word.numberOr(0), 0, 255)) << shift);
    };
    switch (word.hash) {
    case "red"_rtf:
        setComponent(0);
        break;
    case "green"_rtf:
        setComponent(8);
        break;
    case "blue"_rtf:
        setComponent(16);
        break;
    case "f"_rtf:
        m_fontIndex = qMax(word.numberOr(0), 0);
        break;
    case "fcharset"_rtf:
        m_fontCharset = word.numberOr(1);
        break;
    default:
        break;
    }
}
