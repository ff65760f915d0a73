#include "messenger/messenger.h"
#include "messenger/skin_files.h"
#include "platform/text_file.h"
#include "raw_client.h"

#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

struct MessengerTest : testing::Test
{
    MessengerTest() { options.home = folder.path() + u"/new"; }

    void SetUp() override { start(); }

    void start()
    {
        companion = std::make_unique<Messenger>(options);
        ASSERT_TRUE(companion->start());
    }

    /// A client that has connected; the n-th is user n of the table.
    std::unique_ptr<RawClient> connectClient(bool reads = true)
    {
        const qsizetype before = companion->clientCount();
        auto client = std::make_unique<RawClient>(companion->port(), reads);
        EXPECT_TRUE(eventually([&] {
            return companion->clientCount() > before && client->socket.state() == TcpSocket::State::Connected;
        }));
        return client;
    }

    QTemporaryDir folder;
    MessengerOptions options;
    std::unique_ptr<Messenger> companion;
};

} // namespace

TEST(SkinFiles, ABareNameIsLookedForAndAPathStays)
{
    const QTemporaryDir own;
    const QTemporaryDir shipped;
    const auto found = [&](const QString &name) {
        return messenger::findSkin(name, {own.path() + u"/", shipped.path() + u"/"});
    };
    EXPECT_EQ(found(u"Light"_s), own.filePath(u"Light.skn"_s)) << "where it would belong";
    for (const QTemporaryDir *folder : {&shipped, &own}) {
        ASSERT_TRUE(writeTextFile(folder->filePath(u"Light.skn"_s), u"x"_s));
        EXPECT_EQ(found(u"Light"_s), folder->filePath(u"Light.skn"_s));
    }
    for (const QString &path : {u"/a/Light"_s, u"C:\\skins\\Light"_s, u"Light.skn"_s, u""_s}) {
        EXPECT_EQ(found(path), path);
    }
}

TEST_F(MessengerTest, APortThatIsTakenIsReported)
{
    options.port = companion->port();
    Messenger other(options);
    EXPECT_FALSE(other.start());
    ASSERT_EQ(other.problems().size(), 1);
    EXPECT_TRUE(other.problems().first().contains(QString::number(options.port)));
}

TEST_F(MessengerTest, SpeaksTheCodePageOfTheSettings)
{
    companion.reset();
    ASSERT_TRUE(writeTextFile(options.home + u"/Pylox.ini", u"[Chat]\r\nCodePage=utf-8\r\n"_s));
    start();
    const auto robin = connectClient();
    robin->send("<MSG><V mk=\"C1\"/><CREATECHANNEL g=\"1\" nm=\"Zo\xc3\xab\xe2\x86\x92\" ty=\"1\"/></MSG>" +
                QByteArray(1, '\0'));
    robin->request(u"<GETCHANNELS g=\"1\" st=\"1\"/>"_s);
    EXPECT_TRUE(robin->gets(QString::fromLatin1("nm=\"Zo\xc3\xab\xe2\x86\x92\"")));
    companion->command(u"rename u1 Zo\u00eb\u2192"_s);
    EXPECT_TRUE(robin->gets(QString::fromLatin1("n=\"Zo\xc3\xab\xe2\x86\x92\"")));
}

TEST_F(MessengerTest, OddMessagesAreDroppedAndTheNextIsAnswered)
{
    const auto robin = connectClient();
    const auto sasha = connectClient();
    const QByteArray odd[] = {
        "",
        "garbage",
        R"(<MSG><V mk="C1"/><CREATECHANNEL g="1" nm="a"b" ty="1"/></MSG>)",
        R"(<MSG><V mk="MSG"/><GETSKIN/></MSG>)",
        R"(<MSG><V mk=""/><GETSKIN/></MSG>)",
        "<MSG><V/><GETSKIN/></MSG>",
        R"(<MSG><GETSKIN/><V mk="C1"/></MSG>)",
        R"(<MSG><V mk="C1"/></MSG>)",
        "<MSG><V mk=\"" + QByteArray(65, 'k') + "\"/><GETSKIN/></MSG>",
        QByteArray(5'000'000, 'x'),
        QByteArray("<A>").repeated(100'000),
    };
    for (const QByteArray &bytes : odd) {
        robin->send(bytes + '\0');
        robin->request(u"<GETMYDETAILS/>"_s);
        ASSERT_TRUE(robin->gets(u"<V mk=\"C%1\"/><MYDETAILS id=\"u1\""_s.arg(robin->keys)))
            << bytes.left(40).constData();
    }
    EXPECT_EQ(robin->received.size(), robin->keys + 1) << "only those, and that Sasha came";
    robin->send("<MSG><V mk=\"C99\"/><GETSK");
    sasha->request(u"<GETMYDETAILS/>"_s);
    EXPECT_TRUE(sasha->gets(u"MYDETAILS id=\"u2\""_s)) << "half a message holds nobody up";
    robin->send(QByteArray("IN/></MSG>", 11));
    EXPECT_TRUE(robin->gets(u"<V mk=\"C99\"/><SKIN "_s));
}

TEST_F(MessengerTest, ABurstIsAnsweredInOrderWhileOthersAreServed)
{
    const auto robin = connectClient();
    const auto sasha = connectClient();
    ASSERT_TRUE(robin->gets(u"USERONLINE"_s));
    robin->received.clear();
    constexpr int burst = 10'000;
    robin->request(u"<GETMYDETAILS/>"_s, burst);
    sasha->request(u"<GETSKIN/>"_s);
    EXPECT_TRUE(sasha->gets(u"<SKIN "_s));
    EXPECT_LT(robin->received.size(), burst / 2) << "Sasha does not wait for all of Robin's";
    ASSERT_TRUE(eventually([&] { return robin->received.size() == burst; }));
    for (int number = 1; number <= burst; ++number) {
        ASSERT_TRUE(robin->received[number - 1].startsWith(u"<MSG><V mk=\"C%1\"/>"_s.arg(number)));
    }
}

TEST_F(MessengerTest, WhoDoesNotReadIsNotReadFromAndInTheEndGivenUp)
{
    QString table; // so long that each list of contacts has more than 20 KB
    for (int number = 0; number < 200; ++number) {
        table += u"a%1\t%2\n"_s.arg(number).arg(number, -95, 10, QChar(u'x'));
    }
    options.usersFile = folder.filePath(u"users.txt"_s);
    ASSERT_TRUE(writeTextFile(options.usersFile, table));
    start();
    const auto deaf = connectClient(false);
    const auto robin = connectClient();
    ASSERT_TRUE(robin->entersLobby());
    deaf->asksForLobby();
    ASSERT_TRUE(robin->gets(u"<E id=\"a0\""_s));
    deaf->request(u"<GETPYLOXUSERS/>"_s, 2000);
    EXPECT_FALSE(eventually([&] { return companion->clientCount() == 1; }, 500))
        << "its own requests do not bring a client down";
    deaf->socket.setReading(true);
    EXPECT_TRUE(deaf->gets(u"<V mk=\"C%1\"/>"_s.arg(deaf->keys))) << "and it goes on where it stopped";
    const QRegularExpression whole(u"<U id=\"a1\" .*<U id=\"a199\"[^<]*</PYLOXUSERS></MSG>$"_s);
    EXPECT_EQ(deaf->received.filter(whole).size(), 2000);

    deaf->socket.setReading(false);
    const QString line = u"<CMSG cid=\"1\" id=\"a1\">"_s + QString(60'000, u'x') + u"</CMSG>"_s;
    for (int count = 0; count < 400 && companion->clientCount() == 2; ++count) {
        robin->request(line);
        ASSERT_TRUE(robin->gets(u"<V mk=\"C%1\"/><ACKSM/>"_s.arg(robin->keys)));
    }
    EXPECT_TRUE(eventually([&] { return companion->clientCount() == 1; }));
    EXPECT_TRUE(robin->gets(u"<E id=\"a0\" nm=\"0xx"_s));
}

TEST_F(MessengerTest, WhatWasSentBeforeTheEndIsStillHandled)
{
    const auto robin = connectClient();
    ASSERT_TRUE(robin->entersLobby());
    const auto sasha = connectClient();
    ASSERT_TRUE(sasha->entersLobby());
    for (int line = 0; line < 500; ++line) {
        sasha->request(u"<CMSG cid=\"1\" id=\"u2\">line %1.</CMSG>"_s.arg(line));
    }
    ASSERT_EQ(sasha->socket.pendingBytes(), 0);
    sasha->socket.close();
    EXPECT_TRUE(robin->gets(u">line 499.<"_s));
    EXPECT_TRUE(robin->gets(u"<E id=\"u2\" nm=\"Sasha\" p=\"0\""_s));
}

TEST_F(MessengerTest, NoMoreThan64Clients)
{
    std::vector<std::unique_ptr<RawClient>> clients;
    clients.reserve(64);
    for (int count = 0; count < 64; ++count) {
        clients.push_back(connectClient());
    }
    RawClient oneMore(companion->port());
    EXPECT_TRUE(eventually([&] { return oneMore.isClosed; }));
    clients.pop_back();
    EXPECT_TRUE(eventually([&] { return companion->clientCount() == 63; }));
    const auto next = connectClient();
    next->request(u"<GETMYDETAILS/>"_s);
    EXPECT_TRUE(next->gets(u"id=\"u156\" nick=\"Guest 156\""_s));
}

TEST_F(MessengerTest, GuestsAndHostsActOnTheirOwnAndAfterTheReply)
{
    companion.reset();
    options.guests = 2;
    start();
    const auto robin = connectClient();
    ASSERT_TRUE(robin->entersLobby());
    EXPECT_EQ(robin->received[0], u"<MSG><V mk=\"C1\"/><AJC cid=\"1\" r=\"0\"/></MSG>");
    EXPECT_EQ(robin->received[1], u"<MSG><V mk=\"MSG\"/><AJC cid=\"1\" r=\"0\" tid=\"h1\"/></MSG>");
    EXPECT_TRUE(robin->gets(u"Robin"_s, 5000));
    robin->request(u"<REQUESTJOINCHANNEL cid=\"3\" id=\"u1\" nm=\"Robin\"/>"_s);
    EXPECT_TRUE(robin->gets(u"<MSG><V mk=\"MSG\"/><AJC cid=\"3\" r=\"200\" tid=\"h3\"/></MSG>"_s));
}
