#include "core/colours.h"

#include <array>

namespace {

ColourValue fromRgb(QRgb rgb)
{
    return static_cast<ColourValue>(qRed(rgb) | (qGreen(rgb) << 8) | (qBlue(rgb) << 16));
}

/// The classic system colour indexes, in order, each as the palette's role for the same thing.
constexpr std::array systemRoles = {
    QPalette::Mid,             // 0 scroll bar
    QPalette::Dark,            // 1 desktop
    QPalette::Highlight,       // 2 active caption
    QPalette::Mid,             // 3 inactive caption
    QPalette::Button,          // 4 menu
    QPalette::Base,            // 5 window
    QPalette::Shadow,          // 6 window frame
    QPalette::ButtonText,      // 7 menu text
    QPalette::Text,            // 8 window text
    QPalette::HighlightedText, // 9 caption text
    QPalette::Mid,             // 10 active border
    QPalette::Mid,             // 11 inactive border
    QPalette::Mid,             // 12 application workspace
    QPalette::Highlight,       // 13 highlight
    QPalette::HighlightedText, // 14 highlight text
    QPalette::Button,          // 15 button face
    QPalette::Dark,            // 16 button shadow
    QPalette::PlaceholderText, // 17 grey text
    QPalette::ButtonText,      // 18 button text
    QPalette::Text,            // 19 inactive caption text
    QPalette::Light,           // 20 button highlight
    QPalette::Shadow,          // 21 dark shadow
    QPalette::Midlight,        // 22 light
    QPalette::ToolTipText,     // 23 information text
    QPalette::ToolTipBase,     // 24 information background
};

} // namespace

ColourValue SystemColours::at(quint32 index) const
{
    return index < systemRoles.size() ? fromRgb(m_palette.color(systemRoles[index]).rgb()) : 0;
}

ColourValue SystemColours::resolve(ColourValue colour) const
{
    return (colour & 0xFF000000U) != 0 ? at(colour & 0x00FFFFFFU) : colour;
}

QString RTFColour(ColourValue colour, const SystemColours &systemColours)
{
    const ColourValue rgb = systemColours.resolve(colour);
    return u"\\red" + QString::number(rgb & 0xFF) + u"\\green" + QString::number((rgb >> 8) & 0xFF) +
           u"\\blue" + QString::number((rgb >> 16) & 0xFF) + u';';
}

ColourValue InvertColour(ColourValue colour)
{
    return ~colour & 0x00FFFFFFU;
}

QString EscapeRTF(QStringView text)
{
    QString escaped;
    escaped.reserve(text.size() + 8);
    qsizetype from = 0;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar c = text[at];
        if (c == u'\\' || c == u'{' || c == u'}') {
            escaped += text.sliced(from, at - from);
            escaped += u'\\';
            from = at;
        }
    }
    return escaped += text.sliced(from);
}
