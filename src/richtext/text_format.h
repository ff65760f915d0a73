#pragma once

#include "core/colours.h"

#include <QHashFunctions>

#include <algorithm>
#include <cmath>

/// Stands for the colour that the place where the text is shown has by itself.
inline constexpr ColourValue automaticColour = 0xFFFFFFFF;

/// How a run of characters looks.
struct TextFormat
{
    quint16 font = 0;                     ///< index in the document's font table
    quint16 halfPoints = 24;              ///< size, twice the points
    ColourValue colour = automaticColour; ///< 0x00BBGGRR
    ColourValue background = automaticColour;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;

    friend bool operator==(const TextFormat &, const TextFormat &) = default;
    friend std::size_t qHash(const TextFormat &format, std::size_t seed = 0)
    {
        return qHashMulti(seed, format.font, format.halfPoints, format.colour, format.background, format.bold,
                          format.italic, format.underline, format.strikeOut);
    }
};

/// A size in points as formats hold it: at least half a point, at most what RTF can say.
[[nodiscard]] inline quint16 halfPointsOf(double points)
{
    constexpr double largest = 3276;
    return static_cast<quint16>(std::lround(std::clamp(points * 2, 1.0, largest)));
}

/// How a paragraph stands. Lengths in twips, 1440 to the inch.
struct ParagraphFormat
{
    enum class Alignment : quint8
    {
        Left,
        Centre,
        Right,
        Justified
    };

    qint32 spaceBefore = 0;
    qint32 spaceAfter = 0;
    qint32 leftIndent = 0;
    qint32 firstLineIndent = 0; ///< in addition to the left indent; may be negative
    Alignment alignment = Alignment::Left;

    friend bool operator==(const ParagraphFormat &, const ParagraphFormat &) = default;
};
