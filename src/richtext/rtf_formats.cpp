#include "richtext/rtf_formats.h"

#include <algorithm>

namespace {

constexpr qint32 largestTwips = 31'680; // 22 inches
constexpr qint32 largestHalfPoints = 3000;

} // namespace

bool applyToText(const RtfWord &word, const RtfTables &tables, TextFormat &format)
{
    switch (word.hash) {
    case "b"_rtf:
        format.bold = word.isOn();
        return true;
    case "i"_rtf:
        format.italic = word.isOn();
        return true;
    case "ul"_rtf:
    case "uld"_rtf:
    case "uldb"_rtf:
    case "ulw"_rtf:
    case "ulwave"_rtf:
        format.underline = word.isOn();
        return true;
    case "ulnone"_rtf:
        format.underline = false;
        return true;
    case "strike"_rtf:
        format.strikeOut = word.isOn();
        return true;
    case "cf"_rtf:
        format.colour = tables.colour(word.numberOr(0));
        return true;
    case "highlight"_rtf:
    case "cb"_rtf:
    case "chcbpat"_rtf:
        format.background = tables.colour(word.numberOr(0));
        return true;
    case "fs"_rtf:
        format.halfPoints = word.numberOr(0) > 0 ? quint16(std::clamp(*word.number, 2, largestHalfPoints))
                                                 : TextFormat().halfPoints;
        return true;
    default:
        return false;
    }
}

bool applyToParagraph(const RtfWord &word, ParagraphFormat &paragraph)
{
    const qint32 twips = std::clamp(word.numberOr(0), -largestTwips, largestTwips);
    using Alignment = ParagraphFormat::Alignment;
    switch (word.hash) {
    case "pard"_rtf:
        paragraph = ParagraphFormat();
        return true;
    case "sb"_rtf:
        paragraph.spaceBefore = qMax(twips, 0);
        return true;
    case "sa"_rtf:
        paragraph.spaceAfter = qMax(twips, 0);
        return true;
    case "li"_rtf:
        paragraph.leftIndent = qMax(twips, 0);
        return true;
    case "fi"_rtf:
        paragraph.firstLineIndent = twips;
        return true;
    case "ql"_rtf:
        paragraph.alignment = Alignment::Left;
        return true;
    case "qc"_rtf:
        paragraph.alignment = Alignment::Centre;
        return true;
    case "qr"_rtf:
        paragraph.alignment = Alignment::Right;
        return true;
    case "qj"_rtf:
        paragraph.alignment = Alignment::Justified;
        return true;
    default:
        return false;
    }
}
