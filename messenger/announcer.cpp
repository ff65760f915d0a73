#include "messenger/announcer.h"

#include "messenger/replies.h"
#include "messenger/world.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace messenger {

std::vector<Delivery> Announcer::take()
{
    return std::exchange(m_deliveries, {});
}

void Announcer::announce(const QStringList &recipients, const QString &payload)
{
    if (!recipients.isEmpty()) {
        m_deliveries.push_back({recipients, envelope(unsolicitedKey, payload)});
    }
}

/// A room may hold thousands of guests, but never many connected persons: so these are gone through.
QStringList Announcer::personsIn(const Room &room, const QString &except) const
{
    QStringList ids;
    const QStringList connected = m_world.connected();
    std::ranges::copy_if(connected, std::back_inserter(ids),
                         [&](const QString &id) { return id != except && room.has(id); });
    return ids;
}

/// Who wants to know of a change: the user, those who share a room with them, and those who know them.
QStringList Announcer::acquaintances(const User &user) const
{
    QStringList ids;
    const QStringList connected = m_world.connected();
    std::ranges::copy_if(connected, std::back_inserter(ids), [&](const QString &id) {
        return id == user.id || m_world.user(id)->contacts.contains(user.id) ||
               std::ranges::any_of(m_world.rooms(), [&](const auto &entry) {
                   return entry.second.has(id) && entry.second.has(user.id);
               });
    });
    return ids;
}

QStringList Announcer::ifConnected(const QString &id) const
{
    return m_world.connected().contains(id) ? QStringList(id) : QStringList();
}

void Announcer::asked(const Room &room, const User &user)
{
    announce(ifConnected(room.plan().ownerId), joinRequestEvent(room.cid(), user));
}

void Announcer::answered(const Room &room, const User &user, Code code)
{
    announce(ifConnected(user.id), joinAnswerEvent(room, code));
}

void Announcer::entered(const Room &room, const User &user)
{
    announce(personsIn(room, user.id), presenceEvent(room.cid(), user, true));
}

void Announcer::left(const Room &room, const User &user)
{
    announce(personsIn(room, user.id), presenceEvent(room.cid(), user, false));
}

/// Only the owner has heard of somebody who never entered.
void Announcer::gaveUp(const Room &room, const User &user)
{
    announce(ifConnected(room.plan().ownerId), presenceEvent(room.cid(), user, false));
}

void Announcer::closed(const Room &room, const QString &closedBy)
{
    QStringList ids;
    const QStringList connected = m_world.connected();
    std::ranges::copy_if(connected, std::back_inserter(ids), [&](const QString &id) {
        return id != closedBy && room.standing(id) != Standing::None;
    });
    announce(ids, roomClosedEvent(room.cid()));
}

void Announcer::said(const Room &room, const User &sender, const QString &text)
{
    announce(personsIn(room, sender.id), messageEvent(room.cid(), sender, nullptr, text));
}

void Announcer::whispered(qint32 cid, const User &sender, const User &recipient, const QString &text)
{
    announce(ifConnected(recipient.id), messageEvent(cid, sender, &recipient, text));
}

void Announcer::commanded(const Room &room, const User &sender, const QString &command)
{
    announce(personsIn(room), commandEvent(room.cid(), sender, command));
}

void Announcer::moodChanged(const User &user)
{
    announce(acquaintances(user), moodEvent(user));
}

void Announcer::renamed(const User &user)
{
    announce(acquaintances(user), nameEvent(user));
}

void Announcer::cameOnline(const User &user)
{
    QStringList ids;
    const QStringList connected = m_world.connected();
    std::ranges::copy_if(connected, std::back_inserter(ids), [&](const QString &id) {
        return id != user.id && m_world.user(id)->contacts.contains(user.id);
    });
    announce(ids, onlineEvent(user));
}

void Announcer::skinChanged(const QString &path)
{
    announce(m_world.connected(), skinEvent(path));
}

void Announcer::serverLost()
{
    announce(m_world.connected(), serverEvent(false));
}

void Announcer::serverReturned()
{
    announce(m_world.connected(), serverEvent(true));
}

} // namespace messenger
