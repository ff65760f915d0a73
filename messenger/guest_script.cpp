#include "messenger/guest_script.h"

#include "messenger/default_world.h"
#include "messenger/guest_lines.h"
#include "messenger/world.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace messenger {

namespace {

// Times in milliseconds.
constexpr qint64 answerLeast = 1000;
constexpr qint64 answerMost = 1900;
constexpr qint64 turnLeast = 2000;
constexpr qint64 turnMost = 6000;
constexpr qint64 decision = 1000;
constexpr qint64 stayLeast = 60'000;
constexpr qint64 stayMost = 180'000;
constexpr qint64 awayLeast = 5'000;
constexpr qint64 awayMost = 20'000;
constexpr qint64 arrivalSpacing = 150;
constexpr qint64 arrivalMost = 10'000;

/// A person who writes faster than guests answer gets no answer for each line, so that nothing piles up.
constexpr int mostOwed = 2;

/// How many guests come to a room that a person opens.
constexpr int knocks = 3;

constexpr qint32 secondHome = 2;

/// What is owed, in which room, to whom.
QString debt(QStringView what, qint32 cid, const QString &id = {})
{
    return what % u' ' % QString::number(cid) % u' ' % id;
}

} // namespace

QString textItem(QStringView text, bool isBold)
{
    return u"<SMSG>" % QStringView(isBold ? u"<b>" : u"") % text % u'\x01';
}

GuestScript::GuestScript(const World &world, const QStringList &guests, quint32 seed)
    : m_world(world), m_guests(guests), m_random(seed)
{
    for (qsizetype index = 0; index < guests.size(); ++index) {
        m_homes.insert(guests[index], index % 3 == 2 ? secondHome : lobbyCid);
    }
}

void GuestScript::start(qint64 now)
{
    const qint64 spacing = qMin(arrivalSpacing, arrivalMost / qMax(m_guests.size(), qsizetype(1)));
    for (qsizetype index = 0; index < m_guests.size(); ++index) {
        const qint64 delay = index * spacing;
        plan(now, delay, delay, {Plan::Arrive, m_guests[index]});
    }
}

std::optional<qint64> GuestScript::nextDue() const
{
    return m_tasks.empty() ? std::nullopt : std::optional(m_tasks.begin()->first);
}

std::vector<GuestAction> GuestScript::tick(qint64 now)
{
    while (!m_tasks.empty() && m_tasks.begin()->first <= now) {
        const auto task = m_tasks.extract(m_tasks.begin());
        perform(now, task.mapped());
    }
    return std::exchange(m_actions, {});
}

void GuestScript::plan(qint64 now, qint64 least, qint64 most, const Task &task)
{
    m_tasks.emplace(now + least + below(static_cast<quint32>(most - least + 1)), task);
}

void GuestScript::perform(qint64 now, const Task &task)
{
    switch (task.plan) {
    case Plan::Arrive:
        m_actions.push_back({GuestAction::Kind::Ask, task.guest, homeOf(task.guest)});
        break;
    case Plan::Enter:
        m_actions.push_back({GuestAction::Kind::Enter, task.guest, task.cid});
        break;
    case Plan::Depart:
        m_actions.push_back({GuestAction::Kind::Leave, task.guest, task.cid});
        break;
    case Plan::RoomTurn:
        takeTurn(now, task);
        break;
    case Plan::Greet:
        settle(debt(u"greeting", task.cid, task.other));
        talkTo(task, lines::greetings());
        break;
    case Plan::Answer:
        settle(debt(u"answer", task.cid));
        talkTo(task, lines::answers());
        break;
    case Plan::WhisperBack: {
        settle(debt(u"whisper", 0, task.guest));
        const QString text = oneOf(lines::whispers()).toString().arg(nameOf(task.other));
        m_actions.push_back({GuestAction::Kind::Whisper, task.guest, 0, task.other, textItem(text)});
        break;
    }
    case Plan::Knock:
        knock(task);
        break;
    case Plan::SayHello:
        say(task.guest, task.cid, textItem(oneOf(lines::arrivals())));
        break;
    case Plan::Decide:
        decide(task);
        break;
    }
}

/// Somebody says or does something, as long as a person is there to see it.
void GuestScript::takeTurn(qint64 now, const Task &task)
{
    const Room *room = m_world.room(task.cid);
    if (room == nullptr || personsIn(*room).isEmpty()) {
        m_lively.remove(task.cid);
        return;
    }
    plan(now, turnLeast, turnMost, task);
    const QString guest = guestIn(*room);
    if (guest.isEmpty()) {
        return;
    }
    const quint32 chance = below(100);
    if (chance < 70) {
        say(guest, task.cid, textItem(oneOf(lines::chatter()), below(5) == 0));
    } else if (chance < 85) {
        showEmotion(guest, *room);
    } else {
        changeMood(guest);
    }
}

void GuestScript::decide(const Task &task)
{
    settle(debt(u"decision", task.cid, task.other));
    if (const Room *room = m_world.room(task.cid)) {
        const bool rejects = room->plan().door == Door::HostRejects;
        m_actions.push_back({rejects ? GuestAction::Kind::Reject : GuestAction::Kind::Accept,
                             room->plan().ownerId, task.cid, task.other});
    }
}

/// Whoever is there then takes it up.
void GuestScript::talkTo(const Task &task, std::span<const QStringView> choice)
{
    const Room *room = m_world.room(task.cid);
    const QString guest = room != nullptr && room->has(task.other) ? guestIn(*room) : QString();
    if (!guest.isEmpty()) {
        say(guest, task.cid, textItem(oneOf(choice).toString().arg(nameOf(task.other))));
    }
}

void GuestScript::say(const QString &guest, qint32 cid, const QString &body)
{
    m_actions.push_back({GuestAction::Kind::Say, guest, cid, {}, body});
}

void GuestScript::showEmotion(const QString &guest, const Room &room)
{
    const QStringList persons = personsIn(room);
    const bool isAimed = below(2) == 0;
    const QString person = isAimed ? persons[below(static_cast<quint32>(persons.size()))] : QString();
    say(guest, room.cid(), emotion(guest, person));
}

QString GuestScript::emotion(const QString &guest, const QString &person)
{
    const QString user = u" user=" % nameOf(guest) % u'\x03';
    if (person.isEmpty()) {
        return u"<EMOT>" % oneOf(lines::emotionsForRoom()) % u'\x02' % user % u'\x01';
    }
    const QString target = u" tuser=" % nameOf(person) % u'\x03';
    return u"<EMOT>" % oneOf(lines::emotionsForUser()) % u'\x02' % user % target % u'\x01';
}

void GuestScript::changeMood(const QString &guest)
{
    constexpr std::array<qint32, 9> moods{1, 2, 3, 4, 5, 6, 7, 8, 27};
    constexpr qint32 statusAway = 12;
    const bool isAway = below(4) == 0;
    m_actions.push_back({.kind = GuestAction::Kind::Mood,
                         .who = guest,
                         .status = isAway ? statusAway : statusOnline,
                         .mood = moods[below(moods.size())]});
}

/// Turns are taken in a room from the moment that a person and a guest are in it.
void GuestScript::enliven(qint64 now, const Room &room)
{
    if (!m_guests.isEmpty() && !m_lively.contains(room.cid()) && !personsIn(room).isEmpty()) {
        m_lively.insert(room.cid());
        plan(now, turnLeast, turnMost, {Plan::RoomTurn, {}, room.cid()});
    }
}

void GuestScript::asked(qint64 now, const Room &room, const User &user)
{
    if (room.plan().door != Door::OwnerDecides && owe(debt(u"decision", room.cid(), user.id), 1)) {
        plan(now, decision, decision, {Plan::Decide, {}, room.cid(), user.id});
    }
}

void GuestScript::admitted(qint64 now, const Room &room, const User &user)
{
    if (user.kind == UserKind::Guest) {
        plan(now, 200, 600, {Plan::Enter, user.id, room.cid()});
    }
}

void GuestScript::entered(qint64 now, const Room &room, const User &user)
{
    enliven(now, room);
    if (m_guests.isEmpty()) {
        return;
    }
    if (user.kind == UserKind::Person) {
        room.isOwner(user.id) ? planKnocks(now, room) : planGreeting(now, room, user);
        return;
    }
    if (room.plan().door == Door::OwnerDecides) {
        plan(now, 800, 1500, {Plan::SayHello, user.id, room.cid()});
    }
    // The first guest stays, so that whoever comes is not alone.
    if (user.id != m_guests.value(0) || room.cid() != homeOf(user.id)) {
        plan(now, stayLeast, stayMost, {Plan::Depart, user.id, room.cid()});
    }
}

void GuestScript::planGreeting(qint64 now, const Room &room, const User &user)
{
    if (owe(debt(u"greeting", room.cid(), user.id), 1)) {
        plan(now, answerLeast, answerMost, {Plan::Greet, {}, room.cid(), user.id});
    }
}

/// Guests find a room that is listed, one after the other. How many are on their way counts by owner, who may
/// open and close rooms faster than guests walk.
void GuestScript::planKnocks(qint64 now, const Room &room)
{
    const QString owner = room.plan().ownerId;
    for (int knock = 0; knock < knocks && !room.plan().isPrivate; ++knock) {
        if (owe(debt(u"knock", 0, owner), knocks)) {
            plan(now, 2000 + 4000 * knock, 4000 + 4000 * knock, {Plan::Knock, {}, room.cid(), owner});
        }
    }
}

void GuestScript::knock(const Task &task)
{
    settle(debt(u"knock", 0, task.other));
    const QString guest = m_guests[below(static_cast<quint32>(m_guests.size()))];
    const Room *room = m_world.room(task.cid);
    if (room != nullptr && room->standing(guest) == Standing::None) {
        m_actions.push_back({GuestAction::Kind::Ask, guest, task.cid});
    }
}

void GuestScript::left(qint64 now, const Room &room, const User &user)
{
    if (user.kind == UserKind::Guest && room.cid() == homeOf(user.id)) {
        plan(now, awayLeast, awayMost, {Plan::Arrive, user.id});
    }
}

void GuestScript::said(qint64 now, const Room &room, const User &sender)
{
    if (sender.kind != UserKind::Person || m_guests.isEmpty()) {
        return;
    }
    const bool answers = room.cid() == lobbyCid || below(2) == 0;
    if (answers && owe(debt(u"answer", room.cid()), mostOwed)) {
        plan(now, answerLeast, answerMost, {Plan::Answer, {}, room.cid(), sender.id});
    }
}

void GuestScript::whispered(qint64 now, const User &sender, const User &recipient)
{
    if (sender.kind != UserKind::Person || recipient.kind == UserKind::Person) {
        return;
    }
    if (owe(debt(u"whisper", 0, recipient.id), mostOwed)) {
        plan(now, answerLeast, answerMost, {Plan::WhisperBack, recipient.id, 0, sender.id});
    }
}

bool GuestScript::owe(const QString &key, int most)
{
    const int owed = m_owed.value(key);
    if (owed < most) {
        m_owed.insert(key, owed + 1);
    }
    return owed < most;
}

void GuestScript::settle(const QString &key)
{
    if (const int owed = m_owed.take(key); owed > 1) {
        m_owed.insert(key, owed - 1);
    }
}

quint32 GuestScript::below(quint32 limit)
{
    // Not a distribution of the standard library: each of these gives numbers of its own for the same seed.
    return static_cast<quint32>(m_random() % limit);
}

QStringView GuestScript::oneOf(std::span<const QStringView> choice)
{
    return choice[below(static_cast<quint32>(choice.size()))];
}

QString GuestScript::guestIn(const Room &room)
{
    QStringList there;
    std::ranges::copy_if(m_guests, std::back_inserter(there),
                         [&](const QString &id) { return room.has(id); });
    return there.isEmpty() ? QString() : there[below(static_cast<quint32>(there.size()))];
}

QStringList GuestScript::personsIn(const Room &room) const
{
    QStringList persons;
    const QStringList connected = m_world.connected();
    std::ranges::copy_if(connected, std::back_inserter(persons),
                         [&](const QString &id) { return room.has(id); });
    return persons;
}

QString GuestScript::nameOf(const QString &id) const
{
    const User *user = m_world.user(id);
    return user != nullptr ? user->nickname : QString();
}

qint32 GuestScript::homeOf(const QString &guest) const
{
    return m_homes.value(guest);
}

} // namespace messenger
