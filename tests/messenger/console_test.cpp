#include "messenger/console.h"
#include "messenger/options.h"
#include "world_fixture.h"

using namespace messenger;

struct ConsoleTest : WorldTest
{
    int quits = 0;
    Console console{world, [this] { ++quits; }};
};

TEST_F(ConsoleTest, CarriesOutCommands)
{
    world.setSkin(u"first.skn"_s);
    bringIn(robin, 1);
    const std::pair<QString, QStringList> cases[] = {
        {u"  say 1   hello  there "_s,
         {u"<RCMSG cid=\"1\" id=\"h1\" tid=\"0\">\\<SMSG\\>hello  there\x01</RCMSG>"_s}},
        {u"whisper u1 between us"_s,
         {u"<RCMSG cid=\"1\" id=\"h1\" tid=\"u1\">\\<SMSG\\>between us\x01</RCMSG>"_s}},
        {u"status u1 12 8"_s, {uR"(<STATUSMOOD id="u1" s="12" m="8"/>)"_s}},
        {u"rename u2 Sasha the 2nd"_s, {uR"(<NAMECHANGE id="u2" n="Sasha the 2nd"/>)"_s}},
        {u"skin /a b/Dark.skn"_s, {uR"(<SKINCHANGE value="\/a b\/Dark.skn"/>)"_s}},
        {u"kick 1 u1"_s, {u"<RCCMD cid=\"1\" id=\"h1\">DROPUSER userid\\=u1\x03 nick\\=Robin\x03</RCCMD>"_s}},
        {u"offline"_s, {u"<OFFLINE/>"_s}},
        {u"offline"_s, {}},
        {u"online"_s, {u"<ONLINE/>"_s}},
        {u""_s, {}},
    };
    for (const auto &[line, toldRobin] : cases) {
        EXPECT_EQ(console.run(line), QString()) << line.toStdString();
        EXPECT_EQ(told(robin), toldRobin) << line.toStdString();
    }
    bringIn(robin, 2);
    EXPECT_EQ(console.run(u"close 2"_s), QString());
    EXPECT_EQ(told(robin), QStringList(uR"(<CLD cid="2"/>)"_s));
    EXPECT_EQ(world.skin(), u"/a b/Dark.skn");
    console.run(u"quit"_s);
    EXPECT_EQ(quits, 1);
}

TEST_F(ConsoleTest, SaysWhatIsWrong)
{
    world.createRoom(robin, u"1"_s, u"Den"_s, false);
    const QString lines = u"bogus|say|say 1|say 99 x|say 6 x|close|close x|kick 1 u1|kick 1 h1|kick 9 u1|"
                          "whisper nobody x|whisper u8 x|status u1 x 1|status u1 1|status zz 1 1|"
                          "rename zz x|quit now|skin"_s;
    for (const QString &line : lines.split(u'|')) {
        const QString output = console.run(line);
        EXPECT_TRUE(!output.isEmpty() && !output.contains(u'\n')) << line.toStdString();
    }
    EXPECT_EQ(quits, 0);
    EXPECT_TRUE(console.run(u"help"_s).contains(u"\nwhisper USER TEXT"));
    EXPECT_TRUE(console.run(u"rooms"_s).contains(u"\n6 Den (owner u1, members 1)"));
    EXPECT_TRUE(console.run(u"users"_s).startsWith(u"u1 Robin (connected)\n"));
}

TEST(Options, AreReadAndChecked)
{
    const auto parse = [](const QString &line) { return parseArguments(line.split(u' ')); };
    const auto good = parse(u"--port 5190 --home=/h --guests 12 --seed 4294967295 --verbose"_s);
    EXPECT_EQ(good.error, QString());
    const MessengerOptions &got = good.options;
    EXPECT_EQ(std::tie(got.port, got.home, got.guests, got.seed, got.verbose),
              std::tuple(5190, u"/h"_s, 12, 4294967295U, true));
    EXPECT_EQ(parseArguments({}).options.port, 0);
    EXPECT_TRUE(parse(u"--help"_s).help);
    for (const QString &bad : {u"--port 65536"_s, u"--port=-1"_s, u"--port"_s, u"--seed=x"_s,
                               u"--guests=5001"_s, u"--bogus"_s, u"word"_s}) {
        EXPECT_FALSE(parse(bad).error.isEmpty()) << bad.toStdString();
    }
}
