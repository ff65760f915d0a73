#pragma once

#include "messenger/codes.h"
#include "messenger/world.h"

#include <QList>
#include <QString>

/// The texts of all messages that the companion sends, made from what they are about. Nothing here knows
/// sockets or who receives them. Everything that users wrote is escaped here, and only here.
namespace messenger {

/// One element under construction: attributes first, then children, then text.
class ElementText
{
public:
    explicit ElementText(QStringView name);

    ElementText &attribute(QStringView name, QStringView value);
    ElementText &attribute(QStringView name, qint64 value);
    ElementText &code(Code code) { return attribute(u"r", static_cast<qint64>(code)); }
    ElementText &child(QStringView element);
    ElementText &text(QStringView content);

    /// The element as a whole; nothing is to be added afterwards.
    [[nodiscard]] QString end();

private:
    void open();

    QString m_name;
    QString m_text;
    bool m_isOpen = false;
};

/// The key of messages that answer no request.
inline constexpr QStringView unsolicitedKey = u"MSG";

/// A whole message without its NUL. An empty payload leaves the mark alone.
[[nodiscard]] QString envelope(QStringView key, QStringView payload);

/// A reply that holds a code and nothing else.
[[nodiscard]] QString codeReply(QStringView name, Code code);
[[nodiscard]] QString skinReply(const QString &path);
[[nodiscard]] QString detailsReply(const User &user);
[[nodiscard]] QString categoriesReply(const QList<Category> &categories);
[[nodiscard]] QString roomsReply(const QList<const Room *> &rooms);
[[nodiscard]] QString createdReply(const World::Created &created);
[[nodiscard]] QString contactsReply(const World &world, const User &user);
[[nodiscard]] QString contentsReply(const World &world, const Room &room, const ContentsPage &page);
/// The answer to a join request or to one for contents that cannot be given.
[[nodiscard]] QString roomCodeReply(QStringView name, qint32 cid, Code code);

[[nodiscard]] QString joinRequestEvent(qint32 cid, const User &joiner);
[[nodiscard]] QString joinAnswerEvent(const Room &room, Code code);
[[nodiscard]] QString presenceEvent(qint32 cid, const User &user, bool isPresent);
[[nodiscard]] QString roomClosedEvent(qint32 cid);
/// Without a recipient the message is for the room.
[[nodiscard]] QString messageEvent(qint32 cid, const User &sender, const User *recipient, QStringView text);
[[nodiscard]] QString commandEvent(qint32 cid, const User &sender, QStringView command);
[[nodiscard]] QString moodEvent(const User &user);
[[nodiscard]] QString nameEvent(const User &user);
[[nodiscard]] QString onlineEvent(const User &user);
[[nodiscard]] QString skinEvent(const QString &path);
[[nodiscard]] QString serverEvent(bool isOnline);

/// The names of the elements that come without having been asked for.
[[nodiscard]] QList<QStringView> eventNames();

} // namespace messenger
