#include "privmsg/privmsg_rtf.h"

#include "richtext/rtf_reader.h"
#include "room/message_text.h"

#include <QDateTime>
#include <QFont>
#include <QFontInfo>
#include <QLocale>

#include <cmath>

namespace {

constexpr qsizetype longestName = 100;
constexpr qint32 bodyIndent = 240; // twips: 12 points
constexpr QStringView lineIndent = u"    ";

/// Ends a line, or does something else that a person's words have no use for.
bool isControl(QChar c)
{
    return (c.category() == QChar::Other_Control && c != u'\t') || c == QChar::LineSeparator ||
           c == QChar::ParagraphSeparator;
}

bool endsLine(QChar c)
{
    return c == u'\n' || c == u'\v' || c == u'\f' || c == u'\x85' || c == QChar::LineSeparator ||
           c == QChar::ParagraphSeparator;
}

QString shortLine(const QString &text)
{
    QString line = oneLine(text.left(longestName + 1));
    std::ranges::replace_if(
        line, [](QChar c) { return isControl(c) || c == u'\t'; }, u' ');
    return line.size() > longestName ? QString(line.left(longestName - 1) % u'…') : line;
}

/// The words of a run, without pictures: each of their line ends is a line break that the indent follows.
QString wordsOf(QStringView text)
{
    QString words;
    words.reserve(text.size());
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (endsLine(text[at])) {
            words += lineBreakCharacter;
            words += text.sliced(at + 1).startsWith(lineIndent) ? QStringView() : lineIndent;
        } else if (!isControl(text[at]) && text[at] != pictureCharacter) {
            words += text[at];
        }
    }
    return words;
}

/// Appends them in the message's look; what stays of their own format is its style.
class BodyWriter
{
public:
    BodyWriter(RichDocument &body, const PrivateLook &look)
        : m_body(body), m_font(body.fontNumber(look.family)), m_look(look)
    {}

    void write(QStringView text, const TextFormat &style)
    {
        TextFormat format = style;
        format.font = m_font;
        format.halfPoints = m_look.halfPoints;
        format.colour = m_look.colour;
        format.background = automaticColour;
        format.strikeOut = false;
        m_builder.append(wordsOf(text), m_body.formatNumber(format));
    }

    void finish(const ParagraphFormat &format)
    {
        m_body.replaceLast(m_builder.take(m_body.paragraphFormatNumber(format)));
    }

private:
    RichDocument &m_body;
    quint16 m_font;
    const PrivateLook &m_look;
    ParagraphBuilder m_builder;
};

void writeParagraph(BodyWriter &writer, const RichDocument &source, const Paragraph &paragraph)
{
    qsizetype start = 0;
    for (const Run &run : paragraph.runs()) {
        writer.write(paragraph.text().sliced(start, run.end - start), source.format(run.format));
        start = run.end;
    }
}

} // namespace

QString shownPeerName(const QString &name, const QString &id)
{
    const QString shown = shortLine(name);
    return shown.trimmed().isEmpty() ? shortLine(id) : shown;
}

quint16 wholeHalfPoints(const QFont &font)
{
    const double points = font.pointSizeF() > 0 ? font.pointSizeF() : QFontInfo(font).pointSizeF();
    return halfPointsOf(static_cast<double>(std::lrint(points)));
}

QString GenerateMyPrivateMsg(const QString &text, const QFont &font, const ColourPair &colours,
                             const SystemColours &systemColours)
{
    const auto style = [&](bool ofFont, QStringView tag, QStringView word) {
        return ofFont || text.contains(tag) ? word.toString() : QString();
    };
    return u"{\\rtf1\\ansi{\\colortbl;" + RTFColour(0, systemColours) +
           RTFColour(colours.text, systemColours) + RTFColour(colours.background, systemColours) +
           u"}{\\pard\\fs" + QString::number(wholeHalfPoints(font)) + style(font.bold(), u"<b>", u"\\b") +
           style(font.italic(), u"<i>", u"\\i") + style(font.underline(), u"<u>", u"\\ul") + u"\\cf2 " +
           EscapeRTF(withoutTags(text)) + u"}}";
}

RichDocument privateBody(const QString &message, const PrivateLook &look)
{
    RichDocument body;
    BodyWriter writer(body, look);
    RichDocument read;
    if (readRtf(message, read).problem == RtfStatus::Problem::NotRtf) {
        writer.write(withLineFeeds(message), {});
    }
    qsizetype count = read.paragraphCount();
    while (count > 1 && read.paragraph(count - 1).length() == 0) {
        --count; // the end of the last one
    }
    for (qsizetype at = 0; at < count; ++at) {
        writer.write(at > 0 ? u"\n" : u"", {});
        writeParagraph(writer, read, read.paragraph(at));
    }
    ParagraphFormat format;
    format.leftIndent = bodyIndent;
    writer.finish(format);
    return body;
}

QString privateTime(const QDateTime &time)
{
    return QLocale::c().toString(time, QStringLiteral("dd MMM, yyyy hh:mm:ss AP"));
}

RichDocument privateMessage(const PrivateHeader &header, const RichDocument &body, const PrivateLook &look)
{
    RichDocument message;
    TextFormat format;
    format.font = message.fontNumber(look.family);
    format.halfPoints = look.halfPoints;
    const quint16 plain = message.formatNumber(format);
    format.bold = true;
    format.colour = header.nameColour;
    ParagraphBuilder builder;
    builder.append(QString(header.name % u'\t'), message.formatNumber(format));
    format.colour = header.timeColour;
    builder.append(header.time, message.formatNumber(format));
    message.replaceLast(builder.take(0));
    message.append(body);
    builder.append(u" ", plain);
    message.appendParagraph(builder.take(0));
    return message;
}
