#include "messenger/users_file.h"
#include "world_fixture.h"

#include <QSet>

using namespace messenger;

TEST_F(WorldTest, PersonsTakeTheFirstFreePlaceOfTheTable)
{
    EXPECT_EQ(robin + sasha + noor, u"u1u2u3");
    forget();
    world.disconnectPerson(sasha);
    EXPECT_EQ(world.connectPerson(), u"u2");
    EXPECT_EQ(told(robin), QStringList(u"<USERONLINE nick=\"Sasha\"/>"_s));
    EXPECT_EQ(told(sasha), QStringList());
    for (int more = 0; more < 5; ++more) {
        world.connectPerson();
    }
    EXPECT_EQ(world.connectPerson(), u"u101");
    EXPECT_EQ(world.user(u"u101"_s)->nickname, u"Guest 101");
    forget();
    EXPECT_EQ(world.connectPerson(), u"u102");
    EXPECT_EQ(told(robin), QStringList()) << "those who are made up are nobody's contacts";
}

TEST_F(WorldTest, DisconnectingLeavesRoomsAndClosesOwnOnes)
{
    bringIn(robin, 1);
    bringIn(sasha, 1);
    const qint32 den = world.createRoom(sasha, u"1"_s, u"Den"_s, false).cid;
    bringIn(robin, den);
    world.ask(noor, den);
    forget();
    world.disconnectPerson(sasha);
    const QString departure =
        u"<KCC cid=\"1\" r=\"0\"><E id=\"u2\" nm=\"Sasha\" p=\"0\" s=\"11\" m=\"4\"/></KCC>"_s;
    EXPECT_EQ(told(robin), QStringList({departure, u"<CLD cid=\"6\"/>"_s}));
    EXPECT_EQ(told(noor), QStringList(u"<CLD cid=\"6\"/>"_s)) << "who waits hears of it too";
    EXPECT_EQ(world.room(den), nullptr);
    EXPECT_EQ(world.room(1)->standing(sasha), Standing::None);
}

TEST_F(WorldTest, OnlyTheOwnerHearsOfWhoGivesUp)
{
    const qint32 den = world.createRoom(robin, u"1"_s, u"Den"_s, false).cid;
    bringIn(sasha, den);
    world.ask(noor, den);
    forget();
    world.leave(noor, den);
    const QString gone =
        u"<KCC cid=\"6\" r=\"0\"><E id=\"u3\" nm=\"Noor\" p=\"0\" s=\"11\" m=\"3\"/></KCC>"_s;
    EXPECT_EQ(told(robin), QStringList(gone));
    EXPECT_EQ(told(sasha), QStringList());
}

TEST_F(WorldTest, PrivateRoomsAreListedForTheirMembersOnly)
{
    const auto numbers = [&](const QString &id) {
        QList<qint32> cids;
        for (const Room *room : world.listed(id, u"1-3")) {
            cids.append(room->cid());
        }
        return cids;
    };
    EXPECT_EQ(numbers(robin), QList<qint32>({4}));
    bringIn(robin, 5);
    EXPECT_EQ(numbers(robin), QList<qint32>({4, 5}));
    EXPECT_EQ(numbers(sasha), QList<qint32>({4}));
}

TEST_F(WorldTest, StatusAndNameReachThoseWhoCare)
{
    world.addGuest(u"g1"_s, u"Hazel"_s, false);
    bringIn(robin, 1);
    bringIn(u"g1"_s, 1);
    world.setMood(u"g1"_s, 12, 3);
    EXPECT_EQ(told(robin), QStringList(u"<STATUSMOOD id=\"g1\" s=\"12\" m=\"3\"/>"_s));
    EXPECT_EQ(told(sasha), QStringList()) << "neither in the room nor a contact";
    world.rename(sasha, u"Sa\nsha \x03two"_s);
    for (const QString &id : {robin, sasha, noor}) {
        EXPECT_EQ(told(id), QStringList(u"<NAMECHANGE id=\"u2\" n=\"Sasha two\"/>"_s));
    }
    EXPECT_FALSE(world.rename(sasha, u"\n"_s));
    EXPECT_FALSE(world.setMood(u"nobody"_s, 1, 1));
}

TEST_F(WorldTest, RoomsAreLimited)
{
    for (qsizetype count = 0; count < World::maximumRoomsOfOne; ++count) {
        EXPECT_EQ(world.createRoom(robin, u"1"_s, u"Den"_s, false).code, Code::Success);
    }
    EXPECT_EQ(world.createRoom(robin, u"1"_s, u"Den"_s, false).code, Code::TooMany);
    EXPECT_EQ(world.createRoom(sasha, u"1"_s, u"Den"_s, false).code, Code::Success);
}

TEST(Room, PagesHoldEveryMemberOnceThoughOthersComeAndGo)
{
    Room room(1, {.category = u"1"_s, .name = u"Lobby"_s, .ownerId = u"owner"_s});
    for (int member = 1; member < 250; ++member) {
        room.setStanding(u'm' + QString::number(member), Standing::Present);
    }
    const ContentsPage first = room.nextPage(u"owner"_s);
    EXPECT_EQ(first.ids.size(), Room::pageSize);
    EXPECT_EQ(first.total, 250);
    room.setStanding(u"m5"_s, Standing::None);   // told already
    room.setStanding(u"m200"_s, Standing::None); // not told yet
    room.setStanding(u"new"_s, Standing::Present);

    QStringList ids = first.ids;
    qsizetype total = 0;
    for (int page = 0; page < 2; ++page) {
        const ContentsPage next = room.nextPage(u"owner"_s);
        ids += next.ids;
        total = next.total;
    }
    EXPECT_EQ(ids.size(), 250);
    EXPECT_EQ(total, ids.size()) << "the client asks until it has as many as this";
    EXPECT_EQ(QSet<QString>(ids.begin(), ids.end()).size(), ids.size());
    EXPECT_TRUE(ids.contains(u"new") && !ids.contains(u"m200"));

    EXPECT_EQ(room.nextPage(u"m1"_s).ids.first(), u"owner") << "each member has a place of its own";
    EXPECT_EQ(room.nextPage(u"owner"_s).ids.first(), u"owner") << "after the last page the first";
    EXPECT_TRUE(room.nextPage(u"stranger"_s).ids.isEmpty());
}

TEST(Room, CountsTheAdmittedAsTakingAPlace)
{
    Room room(1, {.category = u"1"_s, .name = u"Nook"_s, .ownerId = u"owner"_s, .capacity = 3});
    room.setStanding(u"a"_s, Standing::Waiting);
    room.setStanding(u"b"_s, Standing::Admitted);
    EXPECT_FALSE(room.isFull());
    room.setStanding(u"a"_s, Standing::Admitted);
    EXPECT_TRUE(room.isFull());
    room.setStanding(u"b"_s, Standing::Present);
    EXPECT_TRUE(room.isFull());
    room.setStanding(u"b"_s, Standing::None);
    EXPECT_FALSE(room.isFull());
}

TEST(UsersFile, TakesGoodLinesAndReportsBadOnes)
{
    const UserTable table = parseUsers(u"# id\tname\r\n"
                                       u"a1\tAnn\r\n"
                                       u"\n"
                                       u"b2\tBo & Co\t12\n"
                                       u"c3\tCy\t11\t27\n"
                                       u"no tabs\n"
                                       u"d4\tDi\tx\n"
                                       u"d4\tDi\t-1\n"
                                       u"\tNobody\n"
                                       u"a1\tTwice\n"
                                       u"g7\tGuest\n"
                                       u"e\tE\t1\t2\t3\n"_s);
    ASSERT_EQ(table.users.size(), 3);
    EXPECT_EQ(table.users[0].nickname, u"Ann");
    EXPECT_EQ(table.users[0].status, statusOnline);
    EXPECT_EQ(table.users[1].status, 12);
    EXPECT_EQ(table.users[1].mood, moodHappy);
    EXPECT_EQ(table.users[2].mood, 27);
    ASSERT_EQ(table.problems.size(), 7);
    for (int line = 6; line <= 12; ++line) {
        EXPECT_TRUE(table.problems[line - 6].startsWith(u"line %1: "_s.arg(line)));
    }
}
