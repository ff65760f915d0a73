#include "messenger/guests.h"
#include "support/fake_clock.h"
#include "world_fixture.h"

#include <algorithm>

using namespace messenger;

namespace {

/// A world with guests and a clock that is turned by hand.
struct Party : Scene
{
    void people(int count, quint32 seed = 7) { guests = std::make_unique<Guests>(world, clock, count, seed); }

    /// Lets the guests live for a while; what the user was told meanwhile.
    QStringList after(qint64 milliseconds, const QString &userId)
    {
        const qint64 end = clock.steadyMilliseconds() + milliseconds;
        for (auto wait = guests->untilNext(); wait && clock.steadyMilliseconds() + *wait <= end;
             wait = guests->untilNext()) {
            clock.advance(*wait);
            guests->act();
        }
        clock.advance(end - clock.steadyMilliseconds());
        return told(userId);
    }

    FakeClock clock;
    std::unique_ptr<Guests> guests;
};

struct GuestsTest : testing::Test, Party
{};

qsizetype count(const QStringList &messages, const QString &part)
{
    return messages.filter(part).size();
}

} // namespace

TEST_F(GuestsTest, WhoeverComesToTheLobbyOrSpeaksThereIsAnsweredWithinTwoSeconds)
{
    people(1);
    after(1000, robin);
    bringIn(robin, lobbyCid);
    EXPECT_EQ(count(after(900, robin), u"RCMSG"_s), 0);
    EXPECT_EQ(count(after(1100, robin), u"Robin"_s), 1);
    for (int more = 0; more < 5; ++more) {
        world.say(robin, lobbyCid, u"<SMSG>hello\x01"_s);
        const QStringList heard = after(2000, robin);
        EXPECT_GE(count(heard, u"tid=\"0\">\\<SMSG\\>"_s), 1);
        EXPECT_EQ(count(heard, u"Robin"_s), 1);
    }
}

TEST_F(GuestsTest, ManyLinesGetFewAnswers)
{
    people(5);
    bringIn(robin, lobbyCid);
    after(5000, robin);
    for (int line = 0; line < 1000; ++line) {
        world.say(robin, lobbyCid, u"x"_s);
        world.whisper(robin, lobbyCid, u"g1"_s, u"x"_s);
    }
    const QStringList heard = after(2000, robin);
    EXPECT_EQ(count(heard, u"<RCMSG cid=\"1\" id=\"g1\" tid=\"u1\">\\<SMSG\\>"_s), 2);
    EXPECT_LE(count(heard, u"tid=\"0\""_s), 4);
}

TEST_F(GuestsTest, TheyChatEveryFewSecondsWhileSomebodyListens)
{
    people(8);
    EXPECT_EQ(count(after(300'000, robin), u"RCMSG"_s), 0);
    bringIn(robin, lobbyCid);
    const QStringList heard = after(300'000, robin);
    const qsizetype turns = count(heard, u"RCMSG"_s) + count(heard, u"STATUSMOOD"_s);
    EXPECT_GE(turns, 50);
    EXPECT_LE(turns, 151);
    for (const QString &part : {u"\\<SMSG\\>\\<b\\>"_s, u"\\<EMOT\\>"_s, u"STATUSMOOD"_s,
                                u"tuser\\=Robin\x03\x01"_s, u" :)"_s, u"p=\"0\""_s, u"p=\"1\""_s}) {
        EXPECT_GE(count(heard, part), 1) << part.toStdString();
    }
    world.leave(robin, lobbyCid);
    after(10'000, robin);
    bringIn(sasha, lobbyCid); // the talk starts again after it has died down
    EXPECT_GE(count(after(60'000, sasha), u"RCMSG"_s), 5);
}

TEST_F(GuestsTest, TheyKnockAtANewRoomAndTalkThereOnceLetIn)
{
    people(3);
    after(5000, robin);
    const qint32 den = world.createRoom(robin, u"1"_s, u"Den"_s, false).cid;
    ASSERT_GE(count(after(4000, robin), u"<QJC cid=\"6\" id=\"g"_s), 1);
    const QStringList ids{u"g1"_s, u"g2"_s, u"g3"_s};
    const QString guest = *std::ranges::find_if(
        ids, [&](const QString &id) { return world.room(den)->standing(id) == Standing::Waiting; });
    world.answer(robin, den, guest, true);
    const QStringList heard = after(3000, robin);
    EXPECT_EQ(count(heard, u"<KCC cid=\"6\" r=\"0\"><E id=\""_s + guest + u"\""), 1);
    EXPECT_GE(count(heard, u"<RCMSG cid=\"6\" id=\""_s + guest), 1);

    const qint32 hidden = world.createRoom(sasha, u"1"_s, u"Hidden"_s, true).cid;
    EXPECT_EQ(count(after(20'000, sasha), u"QJC"_s), 0) << "a private room is found by nobody";
    EXPECT_EQ(world.room(hidden)->presentCount(), 1);
}

TEST_F(GuestsTest, HostsDecideAfterASecond)
{
    people(0);
    EXPECT_FALSE(guests->untilNext());
    forget();
    for (const qint32 cid : {2, 3, 5}) {
        world.ask(robin, cid);
        world.ask(robin, cid);
    }
    EXPECT_EQ(after(999, robin), QStringList());
    EXPECT_EQ(after(1, robin), QStringList({u"<AJC cid=\"2\" r=\"0\" tid=\"h2\"/>"_s,
                                            u"<AJC cid=\"3\" r=\"200\" tid=\"h3\"/>"_s,
                                            u"<AJC cid=\"5\" r=\"0\" tid=\"h5\"/>"_s}));
    world.enter(robin, 2);
    world.say(robin, 2, u"anybody?"_s);
    EXPECT_EQ(after(10'000, robin), QStringList());
    EXPECT_FALSE(guests->untilNext()) << "without guests nothing goes on by itself";
}

TEST(GuestScript, TheSameSeedDoesTheSame)
{
    const auto heard = [](quint32 seed) {
        Party party;
        party.people(6, seed);
        party.bringIn(party.robin, lobbyCid);
        return party.after(120'000, party.robin);
    };
    const QStringList once = heard(1);
    EXPECT_GT(once.size(), 20);
    EXPECT_EQ(once, heard(1));
    EXPECT_NE(once, heard(2));
}
