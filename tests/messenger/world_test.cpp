#include "messenger/users_file.h"
#include "world_fixture.h"

#include <QSet>

using namespace messenger;

TEST_F(WorldTest, PersonsTakeTheFirstFreePlaceOfTheTable)
{
    EXPECT_EQ(robin + sasha + noor, u"u1u2u3");
    world.disconnectPerson(sasha);
    forget();
    EXPECT_EQ(world.connectPerson(), u"u2");
    EXPECT_EQ(told(robin), QStringList(uR"(<USERONLINE nick="Sasha"/>)"_s));
    EXPECT_EQ(told(sasha), QStringList());
    for (int more = 0; more < 5; ++more) {
        world.connectPerson();
    }
    forget();
    EXPECT_EQ(world.user(world.connectPerson())->nickname, u"Guest 101");
    EXPECT_EQ(told(robin), QStringList()) << "those who are made up are nobody's contacts";
}

TEST_F(WorldTest, OnlyTheOwnerHearsOfWhoGivesUpAndAllOfWhoDisconnects)
{
    bringIn(robin, 1);
    bringIn(sasha, 1);
    const qint32 den = world.createRoom(sasha, u"1"_s, u"Den"_s, false).cid;
    bringIn(robin, den);
    world.ask(noor, den);
    forget();
    world.leave(noor, den);
    EXPECT_EQ(told(sasha),
              QStringList(uR"(<KCC cid="6" r="0"><E id="u3" nm="Noor" p="0" s="11" m="3"/></KCC>)"_s));
    EXPECT_EQ(told(robin), QStringList());

    world.ask(noor, den);
    forget();
    world.disconnectPerson(sasha);
    const QString closed = uR"(<CLD cid="6"/>)"_s;
    const QString departure = uR"(<KCC cid="1" r="0"><E id="u2" nm="Sasha" p="0" s="11" m="4"/></KCC>)"_s;
    EXPECT_EQ(told(robin), QStringList({departure, closed}));
    EXPECT_EQ(told(noor), QStringList(closed)) << "who waits hears of it too";
    EXPECT_EQ(world.room(den), nullptr);
    EXPECT_EQ(world.room(1)->standing(sasha), Standing::None);
}

TEST_F(WorldTest, StatusAndNameReachThoseWhoCare)
{
    world.addGuest(u"g1"_s, u"Hazel"_s, false);
    bringIn(robin, 1);
    bringIn(u"g1"_s, 1);
    world.setMood(u"g1"_s, 12, 3);
    EXPECT_EQ(told(robin), QStringList(uR"(<STATUSMOOD id="g1" s="12" m="3"/>)"_s));
    EXPECT_EQ(told(sasha), QStringList()) << "neither in the room nor a contact";
    world.rename(sasha, u"Sa\nsha \x03two"_s);
    for (const QString &id : {robin, sasha, noor}) {
        EXPECT_EQ(told(id), QStringList(uR"(<NAMECHANGE id="u2" n="Sasha two"/>)"_s));
    }
    EXPECT_FALSE(world.rename(sasha, u"\n"_s));
    EXPECT_FALSE(world.setMood(u"nobody"_s, 1, 1));
}

TEST_F(WorldTest, RoomsAreLimited)
{
    for (qsizetype count = 0; count <= World::maximumRoomsOfOne; ++count) {
        EXPECT_EQ(world.createRoom(robin, u"1"_s, u"Den"_s, false).code,
                  count < World::maximumRoomsOfOne ? Code::Success : Code::TooMany);
    }
    EXPECT_EQ(world.createRoom(sasha, u"1"_s, u"Den"_s, false).code, Code::Success);
}

TEST(Room, PagesHoldEveryMemberOnceThoughOthersComeAndGo)
{
    Room room(1, {.category = u"1"_s, .name = u"Lobby"_s, .ownerId = u"owner"_s});
    for (int member = 1; member < 250; ++member) {
        room.setStanding(u'm' + QString::number(member), Standing::Present);
    }
    ContentsPage page = room.nextPage(u"owner"_s);
    EXPECT_EQ(page.ids.size(), Room::pageSize);
    EXPECT_EQ(page.total, 250);
    room.setStanding(u"m5"_s, Standing::None);   // told already
    room.setStanding(u"m200"_s, Standing::None); // not told yet
    room.setStanding(u"new"_s, Standing::Present);

    QStringList ids = page.ids;
    for (int more = 0; more < 2; ++more) {
        page = room.nextPage(u"owner"_s);
        ids += page.ids;
    }
    EXPECT_EQ(ids.size(), 250);
    EXPECT_EQ(page.total, ids.size()) << "the client asks until it has as many as this";
    EXPECT_EQ(QSet<QString>(ids.begin(), ids.end()).size(), ids.size());
    EXPECT_TRUE(ids.contains(u"new") && !ids.contains(u"m200"));

    EXPECT_EQ(room.nextPage(u"m1"_s).ids.first(), u"owner") << "each member has a place of its own";
    EXPECT_EQ(room.nextPage(u"owner"_s).ids.first(), u"owner") << "after the last page the first";
    EXPECT_TRUE(room.nextPage(u"stranger"_s).ids.isEmpty());
}

TEST(Room, CountsTheAdmittedAsTakingAPlace)
{
    Room room(1, {.category = u"1"_s, .name = u"Nook"_s, .ownerId = u"owner"_s, .capacity = 3});
    const auto isFullOnce = [&](const QString &id, Standing standing) {
        room.setStanding(id, standing);
        return room.isFull();
    };
    EXPECT_FALSE(isFullOnce(u"a"_s, Standing::Waiting) || isFullOnce(u"b"_s, Standing::Admitted));
    EXPECT_TRUE(isFullOnce(u"a"_s, Standing::Admitted) && isFullOnce(u"b"_s, Standing::Present));
    EXPECT_FALSE(isFullOnce(u"b"_s, Standing::None));
}

TEST(UsersFile, TakesGoodLinesAndReportsBadOnes)
{
    const UserTable table = parseUsers(u"# id\tname\r\na1\tAnn\r\n\nb2\tBo & Co\t12\nc3\tCy\t11\t27\n"
                                       "no tabs\nd4\tDi\tx\nd4\tDi\t-1\n\tNobody\na1\tTwice\ng7\tGuest\n"
                                       "e\tE\t1\t2\t3\n"_s);
    QStringList users;
    for (const auto &user : table.users) {
        users += u"%1 %2 %3"_s.arg(user.nickname).arg(user.status).arg(user.mood);
    }
    EXPECT_EQ(users, (QStringList{u"Ann 11 7"_s, u"Bo & Co 12 7"_s, u"Cy 11 27"_s}));
    ASSERT_EQ(table.problems.size(), 7);
    for (int line = 6; line <= 12; ++line) {
        EXPECT_TRUE(table.problems[line - 6].startsWith(u"line %1: "_s.arg(line)));
    }
}
