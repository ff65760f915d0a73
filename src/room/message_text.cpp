#include "room/message_text.h"

#include "core/shown_name.h"

#include <algorithm>

namespace {

constexpr qsizetype longestName = 200; // a longer one would hold up the drawing of its row
constexpr int mostNames = 100;         // in one text: each may be hundreds of times as long as its place

constexpr bool endsLine(QChar c)
{
    return c == u'\r' || c == u'\v' || c == u'\f' || c == u'\x85' || c == QChar::LineSeparator ||
           c == QChar::ParagraphSeparator;
}

} // namespace

QString oneLine(const QString &name)
{
    QString line = withLineFeeds(shownName(name.left(longestName + 1)));
    std::ranges::replace_if(
        line, [](QChar c) { return c.category() == QChar::Other_Control; }, u' ');
    return line.size() > longestName ? QString(line.left(longestName - 1) % u'…') : line;
}

QString withLineFeeds(const QString &text)
{
    if (std::ranges::none_of(text, endsLine)) {
        return text;
    }
    QString lines = text;
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    std::ranges::replace_if(lines, endsLine, u'\n');
    return lines;
}

QString withoutTags(const QString &text)
{
    QString plain = text;
    for (const auto &tag : {QStringLiteral("<b>"), QStringLiteral("<i>"), QStringLiteral("<u>")}) {
        plain.remove(tag);
    }
    return plain;
}

QString filledIn(const QString &text, const QString &name, const QString &otherName)
{
    QString filled;
    int names = 0;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QStringView rest = QStringView(text).sliced(at);
        const bool user = rest.startsWith(u"%U%");
        if (names < mostNames && (user || rest.startsWith(u"%O%"))) {
            ++names;
            filled += user ? name : otherName;
            at += 2;
        } else {
            filled += text[at];
        }
    }
    return filled;
}
