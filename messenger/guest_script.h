#pragma once

#include "messenger/room.h"
#include "messenger/user.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include <map>
#include <optional>
#include <random>
#include <span>
#include <vector>

namespace messenger {

class World;

/// One thing that a guest or a host does now.
struct GuestAction
{
    enum class Kind
    {
        Ask,
        Enter,
        Leave,
        Say,     ///< text is a message body
        Whisper, ///< to the other; text is a message body
        Mood,
        Accept, ///< lets the other in
        Reject,
    };

    Kind kind = Kind::Say;
    QString who{};
    qint32 cid = 0;
    QString other{};
    QString text{};
    qint32 status = 0;
    qint32 mood = 0;

    friend bool operator==(const GuestAction &, const GuestAction &) = default;
};

/// A text as the body of a message: one text item.
[[nodiscard]] QString textItem(QStringView text, bool isBold = false);

/// What guests and hosts do, and when. It is told what happens and what time it is, in milliseconds of any
/// clock that only grows, looks at the world without changing it, and hands out actions. With the same seed,
/// the same news and the same times it hands out the same.
class GuestScript
{
public:
    GuestScript(const World &world, const QStringList &guests, quint32 seed);

    /// The guests set out.
    void start(qint64 now);

    /// What is to be done by now, in order.
    [[nodiscard]] std::vector<GuestAction> tick(qint64 now);

    /// When tick() has something to do next; none when nothing is planned.
    [[nodiscard]] std::optional<qint64> nextDue() const;

    // News
    void asked(qint64 now, const Room &room, const User &user);
    void admitted(qint64 now, const Room &room, const User &user);
    void entered(qint64 now, const Room &room, const User &user);
    void left(qint64 now, const Room &room, const User &user);
    void said(qint64 now, const Room &room, const User &sender);
    void whispered(qint64 now, const User &sender, const User &recipient);

private:
    enum class Plan
    {
        Arrive,
        Enter,
        Depart,
        RoomTurn,
        Greet,
        Answer,
        WhisperBack,
        Knock,
        SayHello,
        Decide,
    };
    struct Task
    {
        Plan plan;
        QString guest{};
        qint32 cid = 0;
        QString other{};
    };

    void plan(qint64 now, qint64 least, qint64 most, const Task &task);
    void perform(qint64 now, const Task &task);
    void planGreeting(qint64 now, const Room &room, const User &user);
    void planKnocks(qint64 now, const Room &room);
    void knock(const Task &task);
    void takeTurn(qint64 now, const Task &task);
    void decide(const Task &task);
    void talkTo(const Task &task, std::span<const QStringView> choice);
    void say(const QString &guest, qint32 cid, const QString &body);
    void showEmotion(const QString &guest, const Room &room);
    void changeMood(const QString &guest);
    void enliven(qint64 now, const Room &room);

    /// False, and nothing owed, when that much is owed already.
    [[nodiscard]] bool owe(const QString &key, int most);
    void settle(const QString &key);

    [[nodiscard]] quint32 below(quint32 limit);
    [[nodiscard]] QStringView oneOf(std::span<const QStringView> choice);
    [[nodiscard]] QString guestIn(const Room &room);
    [[nodiscard]] QStringList personsIn(const Room &room) const;
    [[nodiscard]] QString nameOf(const QString &id) const;
    [[nodiscard]] qint32 homeOf(const QString &guest) const;
    [[nodiscard]] QString emotion(const QString &guest, const QString &person);

    const World &m_world;
    QStringList m_guests;
    QHash<QString, qint32> m_homes; ///< the room a guest comes back to
    std::mt19937 m_random;
    std::multimap<qint64, Task> m_tasks; ///< by the time they are due
    std::vector<GuestAction> m_actions;  ///< what this tick has made so far
    QSet<qint32> m_lively;               ///< rooms in which turns are taken
    QHash<QString, int> m_owed;          ///< answers that are planned, by who is to get them
};

} // namespace messenger
