#include "richtext/text_links.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr qsizetype longestLink = 2048;
constexpr QStringView starts[] = {u"https://", u"http://", u"ftp://", u"mailto:", u"www."};

/// Spaces, what is not a character, and what hides or turns round characters.
bool endsLink(QChar c)
{
    switch (c.category()) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_NotAssigned:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
    case QChar::Separator_Space:
        return true;
    default:
        return QStringView(u"<>\"\uFFFC\u3001\u3002\uFF0C").contains(c);
    }
}

bool endsSentence(QChar c)
{
    return QStringView(u".,;:!?'*\u2019\u201D\u00BB\u2026").contains(c);
}

/// Whether the bracket at the end of the link was opened before it.
bool closesEarlier(QStringView link)
{
    constexpr QStringView opening = u"([{";
    constexpr QStringView closing = u")]}";
    const qsizetype kind = closing.indexOf(link.back());
    return kind >= 0 && link.count(opening[kind]) < link.count(closing[kind]);
}

/// How long the address is at the start of the text that begins like one.
qsizetype linkLength(QStringView text, qsizetype start)
{
    const auto end = std::find_if(text.begin() + start, text.end(), endsLink);
    QStringView link = text.first(end - text.begin());
    while (link.size() > start && (endsSentence(link.back()) || closesEarlier(link))) {
        link.chop(1);
    }
    return link.size();
}

TextLink linkAt(QStringView text, qsizetype from)
{
    const QStringView rest = text.sliced(from, qMin(longestLink, text.size() - from));
    const auto *const start = std::ranges::find_if(
        starts, [&](QStringView each) { return rest.startsWith(each, Qt::CaseInsensitive); });
    if (start == std::end(starts)) {
        return {};
    }
    const qsizetype length = linkLength(rest, start->size());
    if (length == start->size()) {
        return {};
    }
    const QString written = rest.first(length).toString();
    return {from, length, QUrl(*start == u"www." ? QString(u"http://" + written) : written)};
}

} // namespace

QList<TextLink> findLinks(QStringView text)
{
    QList<TextLink> links;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const bool insideWord = at > 0 && text[at - 1].isLetterOrNumber();
        if (insideWord || !QStringView(u"hfmwHFMW").contains(text[at])) {
            continue;
        }
        if (const TextLink link = linkAt(text, at); link.length > 0) {
            at = link.end() - 1;
            if (link.address.isValid()) {
                links += link;
            }
        }
    }
    return links;
}
