#pragma once

#include "core/colours.h"
#include "richtext/document.h"

class QDateTime;
class QFont;

/// What a private conversation shows, as documents that are appended to it.

/// A person's name on one line, without what cannot be seen and no longer than a line; the id in the place of
/// a name of which nothing is left.
[[nodiscard]] QString shownPeerName(const QString &name, const QString &id);

/// The user's own words as RTF: in the font's size and style; the tags "<b>", "<i>" and "<u>" are taken out
/// and make the whole of it bold, italic or underlined.
[[nodiscard]] QString GenerateMyPrivateMsg(const QString &text, const QFont &font, const ColourPair &colours,
                                           const SystemColours &systemColours);

/// How the words of one message look.
struct PrivateLook
{
    QString family;
    quint16 halfPoints = 20; ///< size, twice the points
    ColourValue colour = 0;  ///< no name of a system colour
};

/// The size of a font as RTF has it: twice the points, which are rounded first, halves to the even one.
[[nodiscard]] quint16 wholeHalfPoints(const QFont &font);

/// The body of a message, which is RTF or plain text and may be a stranger's. Its text, and what of it is
/// bold, italic or underlined, is taken over. It is one paragraph and stands in from the headers' edge, so
/// that none of its lines can pose as a header. Pictures are left out.
[[nodiscard]] RichDocument privateBody(const QString &message, const PrivateLook &look);

/// Who wrote a message, and when.
struct PrivateHeader
{
    QString name; ///< as it is shown
    QString time;
    ColourValue nameColour = 0;
    ColourValue timeColour = 0;
};

/// "05 Mar, 2026 01:02:03 PM", in every locale.
[[nodiscard]] QString privateTime(const QDateTime &time);

/// The header's line, the body, and a line that holds one space.
[[nodiscard]] RichDocument privateMessage(const PrivateHeader &header, const RichDocument &body,
                                          const PrivateLook &look);
