#include "messenger/requests.h"

#include "core/numbers.h"
#include "link/clsXMLMessage.h"
#include "messenger/replies.h"
#include "messenger/world.h"

#include <algorithm>
#include <iterator>

namespace messenger {

namespace {

/// The attribute, or nothing: a request without it fails for what it then asks for.
QString value(const clsXMLMessage &request, QStringView name)
{
    return request.value(name).value_or(QStringView()).toString();
}

qint32 roomNumber(const clsXMLMessage &request)
{
    return leadingInt32(request.value(u"cid").value_or(QStringView()));
}

/// The value of a command's parameter, which code 3 ends.
QString parameter(const QString &command, QStringView name)
{
    const qsizetype at = command.indexOf(name);
    if (at < 0) {
        return {};
    }
    const qsizetype start = at + name.size();
    const qsizetype end = command.indexOf(u'\x03', start);
    return end < 0 ? QString() : command.sliced(start, end - start);
}

/// An acknowledgement has no place for a code, so a failure is the mark alone.
QString acknowledgement(QStringView name, Code code)
{
    return code == Code::Success ? ElementText(name).end() : QString();
}

} // namespace

/// A request, who answers it, and the reply that can carry a code; without one a failure is the mark alone.
struct Requests::Entry
{
    QStringView name;
    QString (Requests::*handler)(const QString &, const clsXMLMessage &);
    QStringView codeReplyName;
    bool needsServer = true;
};

const Requests::Entry Requests::table[] = {
    {u"GETSKIN", &Requests::getSkin, {}, false},
    {u"GETMYDETAILS", &Requests::getMyDetails, {}, false},
    {u"GETCATEGORIES", &Requests::getCategories, {}},
    {u"GETCHANNELS", &Requests::getChannels, {}},
    {u"GETCHANNELCONTENTS", &Requests::getContents, u"KCC"},
    {u"GETPYLOXUSERS", &Requests::getPyloxUsers, {}},
    {u"CREATECHANNEL", &Requests::createChannel, u"ACC"},
    {u"DESTROYCHANNEL", &Requests::destroyChannel, u"KLC"},
    {u"REQUESTJOINCHANNEL", &Requests::requestJoin, u"AJC"},
    {u"ALLOWJOINCHANNEL", &Requests::allowJoin, u"ADC"},
    {u"NOTIFYJOINCHANNEL", &Requests::notifyJoin, u"NJC"},
    {u"LEAVECHANNEL", &Requests::leaveChannel, u"KLC"},
    {u"CMSG", &Requests::sendMessage, {}},
    {u"CCMD", &Requests::sendCommand, {}},
    {u"USERDETAILS", &Requests::userDetails, {}},
    {u"INVITEUSER", &Requests::inviteUser, {}},
};

const Requests::Entry *Requests::find(QStringView name)
{
    const auto *found = std::ranges::find(table, name, &Entry::name);
    return found == std::end(table) ? nullptr : found;
}

QList<QStringView> Requests::names()
{
    QList<QStringView> names;
    std::ranges::transform(table, std::back_inserter(names), &Entry::name);
    return names;
}

QString Requests::answer(const QString &userId, const clsXMLMessage &request)
{
    const Entry *entry = find(request.MsgName);
    if (entry == nullptr) {
        return {};
    }
    if (entry->needsServer && !m_world.isOnline()) {
        return entry->codeReplyName.isEmpty() ? QString() : codeReply(entry->codeReplyName, Code::Offline);
    }
    return (this->*entry->handler)(userId, request);
}

QString Requests::getSkin(const QString & /*userId*/, const clsXMLMessage & /*request*/)
{
    return skinReply(m_world.skin());
}

QString Requests::getMyDetails(const QString &userId, const clsXMLMessage & /*request*/)
{
    return detailsReply(*m_world.user(userId));
}

QString Requests::getCategories(const QString & /*userId*/, const clsXMLMessage & /*request*/)
{
    return categoriesReply(m_world.categories());
}

QString Requests::getChannels(const QString &userId, const clsXMLMessage &request)
{
    const QString category = value(request, u"g");
    if (!m_world.hasCategory(category)) {
        return {};
    }
    const QList<const Room *> rooms = m_world.listed(userId, category);
    const qsizetype start = std::clamp<qsizetype>(leadingInt32(value(request, u"st")) - 1, 0, rooms.size());
    return roomsReply(rooms.sliced(start));
}

QString Requests::getContents(const QString &userId, const clsXMLMessage &request)
{
    const qint32 cid = roomNumber(request);
    ContentsPage page;
    if (const Code code = m_world.nextContents(userId, cid, page); code != Code::Success) {
        return roomCodeReply(u"KCC", cid, code);
    }
    return contentsReply(m_world, *m_world.room(cid), page);
}

QString Requests::getPyloxUsers(const QString &userId, const clsXMLMessage & /*request*/)
{
    return contactsReply(m_world, *m_world.user(userId));
}

QString Requests::createChannel(const QString &userId, const clsXMLMessage &request)
{
    const bool isPrivate = request.value(u"ty") == QStringView(u"2");
    return createdReply(m_world.createRoom(userId, value(request, u"g"), value(request, u"nm"), isPrivate));
}

QString Requests::destroyChannel(const QString &userId, const clsXMLMessage &request)
{
    return codeReply(u"KLC", m_world.closeRoom(userId, roomNumber(request)));
}

QString Requests::requestJoin(const QString &userId, const clsXMLMessage &request)
{
    const qint32 cid = roomNumber(request);
    return roomCodeReply(u"AJC", cid, m_world.ask(userId, cid));
}

QString Requests::allowJoin(const QString &userId, const clsXMLMessage &request)
{
    const bool accept = request.value(u"r") == QStringView(u"0");
    return codeReply(u"ADC", m_world.answer(userId, roomNumber(request), value(request, u"id"), accept));
}

QString Requests::notifyJoin(const QString &userId, const clsXMLMessage &request)
{
    return codeReply(u"NJC", m_world.enter(userId, roomNumber(request)));
}

QString Requests::leaveChannel(const QString &userId, const clsXMLMessage &request)
{
    return codeReply(u"KLC", m_world.leave(userId, roomNumber(request)));
}

QString Requests::sendMessage(const QString &userId, const clsXMLMessage &request)
{
    const qint32 cid = roomNumber(request);
    const QString text = value(request, u"cnode");
    const QString recipient = value(request, u"tid");
    const bool isForRoom = recipient.isEmpty() || recipient == u"0";
    return acknowledgement(u"ACKSM", isForRoom ? m_world.say(userId, cid, text)
                                               : m_world.whisper(userId, cid, recipient, text));
}

QString Requests::sendCommand(const QString &userId, const clsXMLMessage &request)
{
    const qint32 cid = roomNumber(request);
    const QString command = value(request, u"cnode");
    const bool drops = command.startsWith(u"DROPUSER");
    return acknowledgement(u"ACKSC", drops ? m_world.drop(userId, cid, parameter(command, u" userid="))
                                           : m_world.command(userId, cid, command));
}

/// The details would open in a window of the messenger, and the companion has none.
QString Requests::userDetails(const QString & /*userId*/, const clsXMLMessage & /*request*/)
{
    return {};
}

QString Requests::inviteUser(const QString &userId, const clsXMLMessage &request)
{
    m_world.addContact(userId, value(request, u"id"));
    return {};
}

} // namespace messenger
