#include "room/message_text.h"

#include "core/shown_name.h"

QString oneLine(const QString &name)
{
    return withLineFeeds(shownName(name)).replace(u'\n', u' ');
}

QString withLineFeeds(const QString &text)
{
    QString lines = text;
    return lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
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
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QStringView rest = QStringView(text).sliced(at);
        const bool user = rest.startsWith(u"%U%");
        if (user || rest.startsWith(u"%O%")) {
            filled += user ? name : otherName;
            at += 2;
        } else {
            filled += text[at];
        }
    }
    return filled;
}
