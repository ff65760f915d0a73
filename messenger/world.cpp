#include "messenger/world.h"

#include "messenger/clean_text.h"
#include "messenger/default_world.h"
#include "messenger/world_listener.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace messenger {

namespace {

/// Made-up persons are numbered from here.
constexpr int firstMadeUp = 101;

/// Everybody of the table knows the first of them; of a large table not all, so that memory stays small.
constexpr qsizetype mostTableContacts = 200;

bool canHear(const User &user)
{
    return user.kind != UserKind::Person || user.connected;
}

bool containsCategory(const QList<Category> &categories, QStringView key)
{
    const qsizetype dash = key.indexOf(u'-');
    const QStringView code = dash < 0 ? key : key.first(dash);
    const auto found = std::ranges::find(categories, code, &Category::code);
    return found != categories.end() && (dash < 0 || containsCategory(found->children, key.sliced(dash + 1)));
}

} // namespace

World::World(const QList<User> &table) : m_categories(defaultCategories())
{
    for (const User &entry : table) {
        addUser(entry);
    }
    const QStringList known = m_order.first(qMin(m_order.size(), mostTableContacts));
    for (User &owner : m_users) {
        std::ranges::remove_copy(known, std::back_inserter(owner.contacts), owner.id);
    }
    for (const HostedRoom &room : defaultRooms()) {
        addHost(room.hostId, room.hostName, room.plan);
    }
}

template <typename... Parameters, typename... Arguments>
void World::tell(void (WorldListener::*event)(Parameters...), const Arguments &...arguments)
{
    for (WorldListener *listener : m_listeners) {
        (listener->*event)(arguments...);
    }
}

void World::addHost(const QString &id, const QString &nickname, const RoomPlan &plan)
{
    addUser({.id = id, .nickname = nickname, .kind = UserKind::Host});
    ++m_lastCid;
    m_rooms.emplace(m_lastCid, Room(m_lastCid, plan));
}

void World::addUser(const User &user)
{
    if (!m_users.contains(user.id)) {
        m_users.insert(user.id, user);
        m_order.append(user.id);
    }
}

User *World::find(const QString &id)
{
    const auto at = m_users.find(id);
    return at == m_users.end() ? nullptr : &*at;
}

const User *World::user(const QString &id) const
{
    const auto at = m_users.constFind(id);
    return at == m_users.cend() ? nullptr : &*at;
}

Room *World::find(qint32 cid)
{
    const auto at = m_rooms.find(cid);
    return at == m_rooms.end() ? nullptr : &at->second;
}

const Room *World::room(qint32 cid) const
{
    const auto at = m_rooms.find(cid);
    return at == m_rooms.end() ? nullptr : &at->second;
}

QString World::connectPerson()
{
    const auto isFree = [this](const QString &id) {
        const User &user = m_users[id];
        return user.kind == UserKind::Person && !user.connected;
    };
    const auto free = std::ranges::find_if(m_order, isFree);
    QString id;
    if (free != m_order.end()) {
        id = *free;
    } else {
        int number = firstMadeUp;
        while (m_users.contains(u'u' + QString::number(number))) {
            ++number;
        }
        id = u'u' + QString::number(number);
        addUser({.id = id, .nickname = u"Guest " % QString::number(number)});
    }
    m_users[id].connected = true;
    m_connected.append(id);
    tell(&WorldListener::cameOnline, m_users[id]);
    return id;
}

void World::disconnectPerson(const QString &id)
{
    std::vector<qint32> cids;
    for (const auto &[cid, room] : m_rooms) {
        if (room.standing(id) != Standing::None) {
            cids.push_back(cid);
        }
    }
    for (const qint32 cid : cids) {
        leave(id, cid);
    }
    if (User *user = find(id)) {
        user->connected = false;
        m_connected.removeOne(id);
    }
}

void World::addGuest(const QString &id, const QString &nickname, bool isContact)
{
    for (const QString &other : isContact ? m_order : QStringList()) {
        if (m_users[other].kind == UserKind::Person) {
            m_users[other].contacts.append(id);
        }
    }
    addUser({.id = id, .nickname = nickname, .kind = UserKind::Guest});
}

bool World::setMood(const QString &id, qint32 status, qint32 mood)
{
    User *user = find(id);
    if (user == nullptr) {
        return false;
    }
    user->status = status;
    user->mood = mood;
    tell(&WorldListener::moodChanged, *user);
    return true;
}

bool World::rename(const QString &id, const QString &nickname)
{
    User *user = find(id);
    const QString name = cleanName(nickname);
    if (user == nullptr || name.isEmpty()) {
        return false;
    }
    user->nickname = name;
    tell(&WorldListener::renamed, *user);
    return true;
}

Code World::addContact(const QString &id, const QString &contactId)
{
    User *user = find(id);
    if (user == nullptr || !m_users.contains(contactId)) {
        return Code::NoSuchUser;
    }
    if (user->contacts.contains(contactId)) {
        return Code::Success;
    }
    if (user->contacts.size() >= maximumContacts) {
        return Code::TooMany;
    }
    user->contacts.append(contactId);
    return Code::Success;
}

bool World::hasCategory(QStringView key) const
{
    return containsCategory(m_categories, key);
}

QList<const Room *> World::listed(const QString &userId, QStringView category) const
{
    QList<const Room *> rooms;
    for (const auto &[cid, room] : m_rooms) {
        if (room.plan().category == category && (!room.plan().isPrivate || room.has(userId))) {
            rooms.append(&room);
        }
    }
    return rooms;
}

World::Created World::createRoom(const QString &ownerId, const QString &category, const QString &name,
                                 bool isPrivate)
{
    if (!hasCategory(category)) {
        return {Code::NoSuchRoom};
    }
    const QString clean = cleanName(name);
    if (clean.trimmed().isEmpty() || clean != name) {
        return {Code::BadName};
    }
    const auto owned =
        std::ranges::count_if(m_rooms, [&](const auto &entry) { return entry.second.isOwner(ownerId); });
    if (owned >= maximumRoomsOfOne || static_cast<qsizetype>(m_rooms.size()) >= maximumRooms) {
        return {Code::TooMany};
    }
    ++m_lastCid;
    const RoomPlan plan{.category = category, .name = clean, .ownerId = ownerId, .isPrivate = isPrivate};
    const auto room = m_rooms.emplace(m_lastCid, Room(m_lastCid, plan)).first;
    tell(&WorldListener::entered, room->second, m_users[ownerId]);
    return {Code::Success, m_lastCid};
}

Code World::closeRoom(const QString &closedBy, qint32 cid)
{
    const Room *room = find(cid);
    if (room == nullptr) {
        return Code::NoSuchRoom;
    }
    if (!closedBy.isEmpty() && !room->isOwner(closedBy)) {
        return Code::NotAllowed;
    }
    removeRoom(cid, closedBy);
    return Code::Success;
}

void World::removeRoom(qint32 cid, const QString &closedBy)
{
    auto room = m_rooms.extract(cid);
    tell(&WorldListener::closed, room.mapped(), closedBy);
}

Code World::ask(const QString &userId, qint32 cid)
{
    Room *room = find(cid);
    if (room == nullptr) {
        return Code::NoSuchRoom;
    }
    const User &user = m_users[userId];
    if (room->has(userId)) {
        tell(&WorldListener::answered, *room, user, Code::Success);
        return Code::Success;
    }
    if (room->isFull()) {
        return Code::RoomFull;
    }
    const bool isOpen = room->plan().door == Door::Open;
    room->setStanding(userId, isOpen ? Standing::Admitted : Standing::Waiting);
    if (isOpen) {
        tell(&WorldListener::answered, *room, user, Code::Success);
    } else {
        tell(&WorldListener::asked, *room, user);
    }
    return Code::Success;
}

Code World::answer(const QString &ownerId, qint32 cid, const QString &joinerId, bool accept)
{
    Room *room = find(cid);
    if (room == nullptr) {
        return Code::NoSuchRoom;
    }
    if (!room->isOwner(ownerId)) {
        return Code::NotAllowed;
    }
    if (room->standing(joinerId) != Standing::Waiting) {
        return Code::NoSuchUser;
    }
    if (accept && room->isFull()) {
        return Code::RoomFull;
    }
    room->setStanding(joinerId, accept ? Standing::Admitted : Standing::None);
    tell(&WorldListener::answered, *room, m_users[joinerId], accept ? Code::Success : Code::Rejected);
    return Code::Success;
}

Code World::enter(const QString &userId, qint32 cid)
{
    Room *room = find(cid);
    if (room == nullptr) {
        return Code::NoSuchRoom;
    }
    switch (room->standing(userId)) {
    case Standing::Present:
        return Code::Success;
    case Standing::Admitted:
        break;
    default:
        return Code::NotAllowed;
    }
    room->setStanding(userId, Standing::Present);
    tell(&WorldListener::entered, *room, m_users[userId]);
    return Code::Success;
}

Code World::leave(const QString &userId, qint32 cid)
{
    Room *room = find(cid);
    if (room == nullptr) {
        return Code::Success;
    }
    if (room->isOwner(userId)) {
        removeRoom(cid, userId);
    } else if (const User *user = find(userId)) {
        removeFrom(*room, *user);
    }
    return Code::Success;
}

void World::removeFrom(Room &room, const User &user)
{
    const Standing before = room.standing(user.id);
    if (before == Standing::None) {
        return;
    }
    room.setStanding(user.id, Standing::None);
    tell(before == Standing::Present ? &WorldListener::left : &WorldListener::gaveUp, room, user);
}

Code World::drop(const QString &ownerId, qint32 cid, const QString &memberId)
{
    Room *room = find(cid);
    if (room == nullptr) {
        return Code::NoSuchRoom;
    }
    const QString sender = ownerId.isEmpty() ? room->plan().ownerId : ownerId;
    if (!room->isOwner(sender) || room->isOwner(memberId)) {
        return Code::NotAllowed;
    }
    if (!room->has(memberId)) {
        return Code::NoSuchUser;
    }
    // Put together anew: what the owner's client calls the member is not passed on.
    const User &member = m_users[memberId];
    const QString command = u"DROPUSER userid=" % member.id % u"\x03 nick=" % member.nickname % u'\x03';
    tell(&WorldListener::commanded, *room, m_users[sender], command);
    removeFrom(*room, member);
    return Code::Success;
}

Code World::nextContents(const QString &userId, qint32 cid, ContentsPage &page)
{
    Room *room = find(cid);
    if (room == nullptr) {
        return Code::NoSuchRoom;
    }
    if (!room->has(userId)) {
        return Code::NotAllowed;
    }
    page = room->nextPage(userId);
    return Code::Success;
}

Code World::mayTalk(const QString &senderId, qint32 cid, QStringView text) const
{
    const Room *at = room(cid);
    if (at == nullptr) {
        return Code::NoSuchRoom;
    }
    if (!at->has(senderId)) {
        return Code::NotAllowed;
    }
    return text.size() > maximumTextLength ? Code::BadText : Code::Success;
}

Code World::say(const QString &senderId, qint32 cid, const QString &text)
{
    const Code code = mayTalk(senderId, cid, text);
    if (code == Code::Success) {
        tell(&WorldListener::said, m_rooms.at(cid), m_users[senderId], cleanText(text));
    }
    return code;
}

Code World::whisper(const QString &senderId, qint32 cid, const QString &recipientId, const QString &text)
{
    if (const Code code = mayTalk(senderId, cid, text); code != Code::Success) {
        return code;
    }
    const User *recipient = find(recipientId);
    if (recipient == nullptr || !canHear(*recipient)) {
        return Code::NoSuchUser;
    }
    tell(&WorldListener::whispered, cid, m_users[senderId], *recipient, cleanText(text));
    return Code::Success;
}

Code World::whisperAnywhere(const QString &senderId, const QString &recipientId, const QString &text)
{
    const User *sender = find(senderId);
    const User *recipient = find(recipientId);
    if (sender == nullptr || recipient == nullptr || !canHear(*recipient)) {
        return Code::NoSuchUser;
    }
    tell(&WorldListener::whispered, commonRoom(senderId, recipientId), *sender, *recipient, cleanText(text));
    return Code::Success;
}

/// A room in which both are, else one in which the second is, else the lobby.
qint32 World::commonRoom(const QString &a, const QString &b) const
{
    qint32 second = lobbyCid;
    for (const auto &[cid, room] : m_rooms) {
        if (room.has(b)) {
            second = cid;
            if (room.has(a)) {
                return cid;
            }
        }
    }
    return second;
}

Code World::command(const QString &senderId, qint32 cid, const QString &command)
{
    const Code code = mayTalk(senderId, cid, command);
    if (code == Code::Success) {
        tell(&WorldListener::commanded, m_rooms.at(cid), m_users[senderId], cleanText(command));
    }
    return code;
}

void World::setSkin(const QString &path)
{
    const bool isFirst = m_skin.isEmpty();
    m_skin = cleanText(path);
    if (!isFirst) {
        tell(&WorldListener::skinChanged, m_skin);
    }
}

void World::setOnline(bool online)
{
    if (online == std::exchange(m_online, online)) {
        return;
    }
    if (online) {
        tell(&WorldListener::serverReturned);
        return;
    }
    std::erase_if(m_rooms, [this](const auto &entry) {
        return m_users[entry.second.plan().ownerId].kind == UserKind::Person;
    });
    for (auto &[cid, room] : m_rooms) {
        for (const QString &id : m_connected) {
            room.setStanding(id, Standing::None);
        }
    }
    tell(&WorldListener::serverLost);
}

} // namespace messenger
