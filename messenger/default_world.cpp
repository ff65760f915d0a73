#include "messenger/default_world.h"

namespace messenger {

namespace {

HostedRoom hosted(const QString &hostId, const QString &hostName, const RoomPlan &plan)
{
    HostedRoom room{hostId, hostName, plan};
    room.plan.ownerId = hostId;
    return room;
}

User person(const QString &id, const QString &nickname, qint32 mood)
{
    return {.id = id, .nickname = nickname, .status = statusOnline, .mood = mood};
}

} // namespace

QList<Category> defaultCategories()
{
    return {
        {QStringLiteral("1"),
         QStringLiteral("Lounges"),
         {{QStringLiteral("3"), QStringLiteral("Town Square"), {}},
          {QStringLiteral("4"), QStringLiteral("Quiet Corner"), {}}}},
        {QStringLiteral("2"),
         QStringLiteral("Interests"),
         {{QStringLiteral("5"), QStringLiteral("Music"), {}},
          {QStringLiteral("6"), QStringLiteral("Games & Puzzles"), {}}}},
    };
}

QList<HostedRoom> defaultRooms()
{
    const QString lounges = QStringLiteral("1");
    const QString square = QStringLiteral("1-3");
    const QString corner = QStringLiteral("1-4");
    return {
        hosted(
            QStringLiteral("h1"), QStringLiteral("Marlow"),
            {.category = lounges, .name = QStringLiteral("Lobby"), .door = Door::Open, .capacity = 10'000}),
        hosted(QStringLiteral("h2"), QStringLiteral("Tilda"),
               {.category = corner,
                .name = QStringLiteral("Reading Circle"),
                .door = Door::HostAccepts,
                .capacity = 10'000}),
        hosted(QStringLiteral("h3"), QStringLiteral("Grimble"),
               {.category = corner, .name = QStringLiteral("Members Only"), .door = Door::HostRejects}),
        hosted(QStringLiteral("h4"), QStringLiteral("Pascoe"),
               {.category = square,
                .name = QStringLiteral("Crowded Stairs"),
                .door = Door::HostAccepts,
                .capacity = 1}),
        hosted(QStringLiteral("h5"), QStringLiteral("Wren"),
               {.category = square,
                .name = QStringLiteral("Back Room"),
                .isPrivate = true,
                .door = Door::HostAccepts}),
    };
}

QList<User> defaultUsers()
{
    return {
        person(QStringLiteral("u1"), QStringLiteral("Robin"), 7),
        person(QStringLiteral("u2"), QStringLiteral("Sasha"), 4),
        person(QStringLiteral("u3"), QStringLiteral("Noor"), 3),
        person(QStringLiteral("u4"), QStringLiteral("Mikkel"), 6),
        person(QStringLiteral("u5"), QStringLiteral("Ines"), 27),
        person(QStringLiteral("u6"), QStringLiteral("Jo & Kim"), 2),
        person(QStringLiteral("u7"), QStringLiteral("Zoë"), 8),
        person(QStringLiteral("u8"), QStringLiteral("Ravi"), 1),
    };
}

} // namespace messenger
