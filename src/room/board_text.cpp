#include "room/board_text.h"

#include "core/attribute_text.h"
#include "room/message_text.h"

namespace {

QString indentedLines(const QString &text)
{
    return withLineFeeds(text).replace(QStringLiteral("\n"), QStringLiteral("\n    "));
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
