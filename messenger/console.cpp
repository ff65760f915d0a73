#include "messenger/console.h"

#include "core/numbers.h"
#include "messenger/default_world.h"
#include "messenger/guest_script.h"
#include "messenger/skin_files.h"
#include "messenger/world.h"

#include <algorithm>
#include <iterator>

namespace messenger {

namespace {

QString describe(Code code)
{
    switch (code) {
    case Code::Success:
        return {};
    case Code::NoSuchRoom:
        return QStringLiteral("no such room");
    case Code::NoSuchUser:
        return QStringLiteral("no such user there");
    case Code::NotAllowed:
        return QStringLiteral("that user cannot be removed");
    default:
        return QStringLiteral("that did not work (code %1)").arg(static_cast<int>(code));
    }
}

/// The first words of the line, one each, and what is left of it as the last.
QStringList split(QStringView line, int words)
{
    QStringList parts;
    for (line = line.trimmed(); parts.size() < words - 1 && !line.isEmpty(); line = line.trimmed()) {
        const qsizetype space =
            std::ranges::find_if(line, [](QChar c) { return c.isSpace(); }) - line.begin();
        parts.append(line.first(space).toString());
        line = line.sliced(space);
    }
    if (!line.isEmpty()) {
        parts.append(line.toString());
    }
    return parts;
}

bool isNumber(const QString &text)
{
    bool isNumber = false;
    text.toInt(&isNumber);
    return isNumber;
}

} // namespace

struct Console::Entry
{
    QStringView name;
    QStringView parameters; ///< as the help shows them
    int words;              ///< the name and its parameters; the last one is the rest of the line
    QString (Console::*handler)(const QStringList &);
    QStringView what;
};

const Console::Entry Console::table[] = {
    {u"help", u"", 1, &Console::help, u"list the commands"},
    {u"users", u"", 1, &Console::users, u"list the users"},
    {u"rooms", u"", 1, &Console::rooms, u"list the rooms"},
    {u"skin", u"SKIN", 2, &Console::skin, u"have every client change to this skin"},
    {u"offline", u"", 1, &Console::offline, u"lose the server"},
    {u"online", u"", 1, &Console::online, u"find the server again"},
    {u"close", u"ROOM", 2, &Console::closeRoom, u"close a room"},
    {u"kick", u"ROOM USER", 3, &Console::kick, u"remove a member from a room"},
    {u"say", u"ROOM TEXT", 3, &Console::say, u"say something in a room, as somebody who is in it"},
    {u"whisper", u"USER TEXT", 3, &Console::whisper, u"send a private message to a user, as somebody else"},
    {u"status", u"USER S M", 4, &Console::status, u"change a user's status and mood"},
    {u"rename", u"USER NAME", 3, &Console::rename, u"change a user's nickname"},
    {u"quit", u"", 1, &Console::quit, u"end the messenger"},
};

QString Console::run(const QString &line)
{
    const QStringList first = split(line, 2);
    if (first.isEmpty()) {
        return {};
    }
    const auto *entry = std::ranges::find(table, QStringView(first[0]), &Entry::name);
    if (entry == std::end(table)) {
        return u"unknown command \"" % first[0] % u"\"; \"help\" lists them";
    }
    const QStringList words = split(line, qMax(entry->words, 2));
    if (words.size() != entry->words) {
        return u"usage: " % entry->name % (entry->words > 1 ? u" " : u"") % entry->parameters;
    }
    return (this->*entry->handler)(words);
}

QString Console::help(const QStringList & /*words*/)
{
    QStringList lines;
    for (const Entry &entry : table) {
        const QString usage = entry.name % QStringView(u" ") % entry.parameters;
        lines.append(usage.leftJustified(20) % entry.what);
    }
    return lines.join(u'\n');
}

QString Console::users(const QStringList & /*words*/)
{
    const QStringList connected = m_world.connected();
    QStringList lines;
    for (const QString &id : m_world.userIds()) {
        lines.append(id % u' ' % m_world.user(id)->nickname %
                     QStringView(connected.contains(id) ? u" (connected)" : u""));
    }
    return lines.join(u'\n');
}

QString Console::rooms(const QStringList & /*words*/)
{
    QStringList lines;
    for (const auto &[cid, room] : m_world.rooms()) {
        lines.append(QString::number(cid) % u' ' % room.plan().name % u" (owner " % room.plan().ownerId %
                     u", members " % QString::number(room.presentCount()) % u')');
    }
    return lines.join(u'\n');
}

QString Console::skin(const QStringList &words)
{
    m_world.setSkin(findSkin(words[1], m_skinFolders));
    return {};
}

QString Console::offline(const QStringList & /*words*/)
{
    m_world.setOnline(false);
    return {};
}

QString Console::online(const QStringList & /*words*/)
{
    m_world.setOnline(true);
    return {};
}

QString Console::closeRoom(const QStringList &words)
{
    return describe(m_world.closeRoom({}, leadingInt32(words[1])));
}

QString Console::kick(const QStringList &words)
{
    return describe(m_world.drop({}, leadingInt32(words[1]), words[2]));
}

/// Somebody other than this user who is in a room with them, a guest or host if there is one; a host of
/// elsewhere when there is nobody.
QString Console::companionOf(const QString &id) const
{
    QString found;
    for (const auto &[cid, room] : m_world.rooms()) {
        for (const QString &other : room.has(id) ? room.present() : QStringList()) {
            if (other != id && m_world.user(other)->kind != UserKind::Person) {
                return other;
            }
            found = other != id ? other : found;
        }
    }
    return found.isEmpty() ? defaultRooms().first().hostId : found;
}

/// A guest or a host speaks, not a client: that one would not hear what it said itself.
QString Console::say(const QStringList &words)
{
    const Room *room = m_world.room(leadingInt32(words[1]));
    if (room == nullptr) {
        return describe(Code::NoSuchRoom);
    }
    const QStringList present = room->present();
    const auto speaker = std::ranges::find_if(
        present, [this](const QString &id) { return m_world.user(id)->kind != UserKind::Person; });
    if (speaker == present.end()) {
        return QStringLiteral("nobody is in that room who could say it");
    }
    return describe(m_world.say(*speaker, room->cid(), textItem(words[2])));
}

QString Console::whisper(const QStringList &words)
{
    return describe(m_world.whisperAnywhere(companionOf(words[1]), words[1], textItem(words[2])));
}

QString Console::status(const QStringList &words)
{
    if (!isNumber(words[2]) || !isNumber(words[3])) {
        return QStringLiteral("status and mood must be numbers");
    }
    const bool done = m_world.setMood(words[1], words[2].toInt(), words[3].toInt());
    return done ? QString() : describe(Code::NoSuchUser);
}

QString Console::rename(const QStringList &words)
{
    return m_world.rename(words[1], words[2]) ? QString() : describe(Code::NoSuchUser);
}

QString Console::quit(const QStringList & /*words*/)
{
    m_quit();
    return {};
}

} // namespace messenger
