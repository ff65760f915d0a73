#pragma once

#include <QString>
#include <QStringList>

namespace messenger {

enum class UserKind
{
    Person, ///< stands for a client, while one is connected
    Guest,  ///< moved by the guest script
    Host,   ///< owns one of the rooms that are there from the start
};

/// Statuses 10 to 24 and moods 1 to 8 and 27 have pictures in the client; these two are the usual ones.
inline constexpr qint32 statusOnline = 11;
inline constexpr qint32 moodHappy = 7;

struct User
{
    QString id;
    QString nickname;
    qint32 status = statusOnline;
    qint32 mood = moodHappy;
    UserKind kind = UserKind::Person;
    bool connected = false; ///< of a person only
    QStringList contacts{}; ///< ids
};

} // namespace messenger
