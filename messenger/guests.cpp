#include "messenger/guests.h"

#include "core/clock.h"
#include "messenger/guest_lines.h"
#include "messenger/world.h"

namespace messenger {

namespace {

/// Guests that every person of the table knows.
constexpr int knownGuests = 2;

QString guestName(int index)
{
    const auto names = lines::names();
    const auto count = static_cast<int>(names.size());
    const QString name = names[static_cast<std::size_t>(index % count)].toString();
    return index < count ? name : QString(name % u' ' % QString::number(index / count + 1));
}

/// The ids of the guests, who are in the world from then on.
QStringList invite(World &world, int count)
{
    QStringList ids;
    for (int index = 0; index < count; ++index) {
        ids.append(u'g' + QString::number(index + 1));
        world.addGuest(ids.last(), guestName(index), index < knownGuests);
    }
    return ids;
}

} // namespace

Guests::Guests(World &world, const Clock &clock, int count, quint32 seed)
    : m_world(world), m_clock(clock), m_script(world, invite(world, count), seed)
{
    world.addListener(*this);
    m_script.start(now());
}

qint64 Guests::now() const
{
    return m_clock.steadyMilliseconds();
}

void Guests::act()
{
    for (const GuestAction &action : m_script.tick(now())) {
        apply(action);
    }
}

std::optional<qint64> Guests::untilNext() const
{
    const auto due = m_script.nextDue();
    return due ? std::optional(qMax(*due - now(), qint64(0))) : std::nullopt;
}

void Guests::apply(const GuestAction &action)
{
    using enum GuestAction::Kind;
    switch (action.kind) {
    case Ask:
        m_world.ask(action.who, action.cid);
        break;
    case Enter:
        m_world.enter(action.who, action.cid);
        break;
    case Leave:
        m_world.leave(action.who, action.cid);
        break;
    case Say:
        m_world.say(action.who, action.cid, action.text);
        break;
    case Whisper:
        m_world.whisperAnywhere(action.who, action.other, action.text);
        break;
    case Mood:
        m_world.setMood(action.who, action.status, action.mood);
        break;
    case Accept:
    case Reject:
        m_world.answer(action.who, action.cid, action.other, action.kind == Accept);
        break;
    }
}

void Guests::asked(const Room &room, const User &user)
{
    m_script.asked(now(), room, user);
}

void Guests::answered(const Room &room, const User &user, Code code)
{
    if (code == Code::Success) {
        m_script.admitted(now(), room, user);
    }
}

void Guests::entered(const Room &room, const User &user)
{
    m_script.entered(now(), room, user);
}

void Guests::left(const Room &room, const User &user)
{
    m_script.left(now(), room, user);
}

void Guests::said(const Room &room, const User &sender, const QString & /*text*/)
{
    m_script.said(now(), room, sender);
}

void Guests::whispered(qint32 /*cid*/, const User &sender, const User &recipient, const QString & /*text*/)
{
    m_script.whispered(now(), sender, recipient);
}

} // namespace messenger
