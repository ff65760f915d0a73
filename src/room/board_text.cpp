#include "room/board_text.h"

#include "core/attribute_text.h"

namespace {

QString oneLine(QString name)
{
    return name.replace(QStringLiteral("\r\n"), QStringLiteral(" "))
        .replace(u'\r', u' ')
        .replace(u'\n', u' ');
}

QString indentedLines(QString text)
{
    return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"))
        .replace(u'\r', u'\n')
        .replace(QStringLiteral("\n"), QStringLiteral("\n    "));
}

QString withoutTags(QString text)
{
    for (const auto &tag : {QStringLiteral("<b>"), QStringLiteral("<i>"), QStringLiteral("<u>")}) {
        text.remove(tag);
    }
    return text;
}

/// Both placeholders in one pass, so that a name that holds one is shown as it is.
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

} // namespace

QString boardText(const QString &text, MessageKind kind, const QString &name, const QString &otherName)
{
    QString shown = text;
    if (shown.endsWith(itemEnd)) {
        shown.chop(1);
    }
    switch (kind) {
    case MessageKind::Own:
    case MessageKind::Member:
        return oneLine(name) + u": " + indentedLines(withoutTags(shown));
    case MessageKind::Emotion:
        return indentedLines(filledIn(shown, oneLine(name), oneLine(otherName)));
    case MessageKind::Normal:
    case MessageKind::Warning:
    case MessageKind::Error:
        return u"SERVER: " + indentedLines(shown);
    case MessageKind::FriendOnline:
    case MessageKind::MessengerOffline:
    case MessageKind::MessengerOnline:
        break;
    }
    return u"PYLOX: " + indentedLines(shown);
}
