#pragma once

#include <QPalette>
#include <QString>

/// Colours are 0x00BBGGRR. A value with any bit of its top byte set names a system colour by its low 24 bits.
using ColourValue = quint32;

/// The colours of some words and of the ground behind them.
struct ColourPair
{
    ColourValue text = 0;
    ColourValue background = 0x00FFFFFF;
};

/// The current system colours, taken from the toolkit's palette.
class SystemColours
{
public:
    explicit SystemColours(const QPalette &palette) : m_palette(palette) {}

    /// The colour with this index (5 is the window background, 8 the window text …); black for an unknown
    /// one.
    [[nodiscard]] ColourValue at(quint32 index) const;

    /// The colour itself, or the system colour that the value names.
    [[nodiscard]] ColourValue resolve(ColourValue colour) const;

private:
    QPalette m_palette;
};

/// The colour's entry in an RTF colour table: "\red0\green0\blue0;" for black.
[[nodiscard]] QString RTFColour(ColourValue colour, const SystemColours &systemColours);

/// Each of the three components becomes 255 minus itself.
[[nodiscard]] ColourValue InvertColour(ColourValue colour);

/// Backslashes are doubled and braces get a backslash, so that RTF shows them as typed.
[[nodiscard]] QString EscapeRTF(QStringView text);
