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

bool isPassedOver(const RtfWord &word)
{
    switch (word.hash) {
    case "stylesheet"_rtf:
    case "info"_rtf:
    case "header"_rtf:
    case "headerl"_rtf:
    case "headerr"_rtf:
    case "headerf"_rtf:
    case "footer"_rtf:
    case "footerl"_rtf:
    case "footerr"_rtf:
    case "footerf"_rtf:
    case "footnote"_rtf:
    case "fldinst"_rtf:
    case "objdata"_rtf:
    case "nonshppict"_rtf:
    case "listtext"_rtf:
    case "xe"_rtf:
    case "tc"_rtf:
        return true;
    default:
        return false;
    }
}

char16_t characterOf(const RtfWord &word)
{
    switch (word.hash) {
    case "emdash"_rtf:
        return u'\u2014';
    case "endash"_rtf:
        return u'\u2013';
    case "lquote"_rtf:
        return u'\u2018';
    case "rquote"_rtf:
        return u'\u2019';
    case "ldblquote"_rtf:
        return u'\u201C';
    case "rdblquote"_rtf:
        return u'\u201D';
    case "bullet"_rtf:
        return u'\u2022';
    default:
        return 0;
    }
}
