#include "room/message_rtf.h"

#include "core/shown_name.h"
#include "room/message_text.h"

#include <cmath>

namespace {

/// A text without its tags, and what they said.
struct Marked
{
    QString text;
    bool bold = false;
    bool italic = false;
    bool underline = false;

    explicit Marked(const QString &marked)
        : text(withoutTags(marked)),
          bold(marked.contains(u"<b>")),
          italic(marked.contains(u"<i>")),
          underline(marked.contains(u"<u>"))
    {}

    [[nodiscard]] QString words() const
    {
        return QString(bold ? QStringLiteral("\\b") : QString()) +
               (italic ? QStringLiteral("\\i") : QString()) +
               (underline ? QStringLiteral("\\ul") : QString());
    }
};

/// Text of strangers inside RTF: shown as typed, and its line ends are lines of the same message, indented,
/// so that none can pose as a notice. Nothing is copied from the board that a terminal would obey.
QString shown(const QString &text)
{
    QString lines = withLineFeeds(text);
    lines.removeIf([](QChar c) { return c == u'\x7f' || (c >= u'\x80' && c < u'\xa0'); });
    return EscapeRTF(lines).replace(QStringLiteral("\n"), QStringLiteral("\\line     "));
}

QString boldName(const QString &name)
{
    return u"\\b " + EscapeRTF(oneLine(name)) + u" \\b0";
}

} // namespace

/// The document's beginning with its colour table; entry 1 is black.
QString MessageRtf::start(std::initializer_list<ColourValue> colours) const
{
    QString rtf = u"{\\rtf1\\ansi{\\colortbl;" + RTFColour(0, m_systemColours);
    for (const ColourValue colour : colours) {
        rtf += RTFColour(colour, m_systemColours);
    }
    return rtf += u'}';
}

/// Twice the points, rounded to a whole number of points first, halves to the even one.
QString MessageRtf::size() const
{
    return QString::number(2 * std::lrint(m_look.points));
}

QString MessageRtf::GenerateRTF(const QString &text, MessageKind kind, const QString &name,
                                bool highlight) const
{
    const bool own = kind == MessageKind::Own;
    const ColourPair nameColours = own ? m_look.ownName : m_look.memberName;
    ColourPair textColours = own ? m_look.ownText : m_look.memberText;
    if (!own && highlight) {
        textColours.background = m_look.highlight;
    }
    Marked marked(text);
    marked.bold = marked.bold || (own && m_look.bold);
    marked.italic = marked.italic || (own && m_look.italic);
    marked.underline = marked.underline || (own && m_look.underline);
    const QString sender =
        name.isEmpty() ? QString()
                       : QString(u"\\cf2\\b\\highlight3 " + EscapeRTF(oneLine(name)) + u": \\b0\\highlight0");
    return start({nameColours.text, nameColours.background, textColours.text, textColours.background}) +
           u"{\\pard\\fs" + size() + sender + marked.words() + u"\\cf4\\highlight5 " + shown(marked.text) +
           u"}}";
}

QString MessageRtf::GeneratePrivateMsg(const QString &text) const
{
    const Marked marked(text);
    return start({m_look.privateText.text, m_look.privateText.background}) + u"{\\pard\\fs" + size() +
           marked.words() + u"\\cf2 " + shown(marked.text) + u"}}";
}

QString MessageRtf::GenerateEmotion(const QString &text, const QString &name, const QString &otherName) const
{
    const QString words = shown(shownName(text)); // what turns writing round would turn the names round too
    // A digit would become part of the size, and a space would be taken for its end.
    const bool apart = !words.isEmpty() && (words.front().isDigit() || words.front() == u' ');
    const QString rtf = start({m_look.emotionName.text, m_look.emotionName.background,
                               m_look.emotionText.text, m_look.emotionText.background}) +
                        u"{\\pard\\cf4\\highlight5\\fs" + size() + (apart ? u" " : u"") + words + u"}}";
    return filledIn(rtf, boldName(name), boldName(otherName));
}

QString MessageRtf::notice(const QString &text, const QString &label,
                           std::initializer_list<ColourValue> colours) const
{
    return start(colours) + u"{\\pard\\cf2\\fs" + size() + u"\\b " + label + u" \\b0 " + shown(text) + u"}}";
}

QString MessageRtf::GenerateServerMsg(const QString &text, MessageKind kind) const
{
    const QString label = QStringLiteral("SERVER:");
    switch (kind) {
    case MessageKind::Normal:
        return notice(text, label, {m_look.normal});
    case MessageKind::Warning:
        return notice(text, label, {m_look.warning});
    case MessageKind::Error:
        return notice(text, label, {m_look.error});
    default:
        return notice(text, label, {});
    }
}

QString MessageRtf::GeneratePyloxMsg(const QString &text, MessageKind kind) const
{
    const bool offline = kind == MessageKind::MessengerOffline;
    return notice(text, QStringLiteral("PYLOX:"), {offline ? m_look.warning : m_look.normal});
}
