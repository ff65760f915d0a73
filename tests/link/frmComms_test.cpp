#include "support/link_fixture.h"
#include "support/recording_room.h"

#include <QFile>

namespace {

struct Link : LinkFixture
{
    Link()
    {
        state.MyUserID = u"u1"_s;
        state.CurrentRoomID = 12;
        link.setRoomEvents(&room);
    }

    void SetUp() override { connectLink(); }

    void answerWith(const QStringList &messages)
    {
        messenger.answerBy([messages](const QString &) { return messages; });
    }

    RecordingRoom room;
};

struct LinkPort : Link
{
    void SetUp() override {}
};

TEST_F(LinkPort, ThePortIsTheCommandLinesElseTheSettingsFiles)
{
    EXPECT_FALSE(link.ConnectToClient({})) << "no port anywhere";
    for (const QString &port : {u"0"_s, u"none"_s, u"-5"_s, u"70000"_s}) {
        EXPECT_FALSE(connectTo(port)) << port.toStdString();
    }
    settings.WriteValue(u"Port"_s, QString::number(messenger.port()), u"Chat"_s);
    EXPECT_TRUE(link.ConnectToClient({}));
    EXPECT_FALSE(connectTo(u"1"_s)) << "nobody listens there";
}

TEST_F(Link, StartUpRequestsReadTheirReplies)
{
    EXPECT_EQ(link.RetrieveSkin(), u"C:\\skins\\Blue.skn"_s);
    const Reply details = link.RetrieveMyDetails();
    ASSERT_NE(details.element(), nullptr);
    EXPECT_EQ(details.element()->value(u"nick"), u"Ann");
    EXPECT_EQ(messenger.requests, (QStringList{u"<GETSKIN/>"_s, u"<GETMYDETAILS/>"_s}));
}

TEST_F(Link, ResultsOfRequestsByTheirReplies)
{
    const struct
    {
        QString reply;
        JoinRequest join;
        bool leave;
    } cases[] = {
        {u"<AJC r=\"0\"/>"_s, JoinRequest::Sent, false},
        {u"<AJC r=\"109\"/>"_s, JoinRequest::RoomFull, false},
        {u"<AJC r=\"5\"/>"_s, JoinRequest::Failed, false},
        {u"<AJC/>"_s, JoinRequest::Failed, false},
        {u"<KLC r=\"0\"/>"_s, JoinRequest::Failed, true},
        {u"<NJC r=\"0\"/>"_s, JoinRequest::Failed, true},
        {u"<KLC r=\"1\"/>"_s, JoinRequest::Failed, false},
        {u"<ACKSM/>"_s, JoinRequest::Failed, false},
        {u""_s, JoinRequest::Failed, false},
    };
    for (const auto &c : cases) {
        answerWith({reply(c.reply)});
        EXPECT_EQ(link.RequestJoinChannel(), c.join) << c.reply.toStdString();
        EXPECT_EQ(link.LeaveChannel(), c.leave) << c.reply.toStdString();
        EXPECT_EQ(link.SendMessage(u"x"_s, {}), !c.reply.isEmpty()) << c.reply.toStdString();
        clock.advance(2000);
    }
}

TEST_F(Link, ContactsAreRebuiltFromTheFirstPlaceOn)
{
    state.lists.PyloxContacts = {{}, {u"old"_s, u"Old"_s}};
    answerWith({});
    QTimer::singleShot(150, [this] { clock.advance(31'000); });
    link.GetPyloxUsers();
    EXPECT_EQ(state.lists.PyloxContacts.size(), 2) << "no reply, no change";

    answerWith({reply(
        u"<PYLOXUSERS><U id=\"7\" nick=\"Ann\"/><U id=\"8\"/><U id=\"9\" nick=\"Bob\"/></PYLOXUSERS>"_s)});
    link.GetPyloxUsers();
    EXPECT_EQ(state.lists.PyloxContacts, (UserList{{u"7"_s, u"Ann"_s}, {u"9"_s, u"Bob"_s}}));
    answerWith({reply(u"<PYLOXUSERS/>"_s)});
    link.GetPyloxUsers();
    EXPECT_EQ(state.lists.PyloxContacts, emptyUserList());
    answerWith({reply(u"<CTL/>"_s)});
    state.lists.PyloxContacts = {{u"7"_s, u"Ann"_s}};
    link.GetPyloxUsers();
    EXPECT_EQ(state.lists.PyloxContacts, emptyUserList()) << "a reply of another kind";
}

TEST_F(Link, AnEventsHandlerMayWaitForARequestOfItsOwn)
{
    QStringList order;
    messenger.answerBy([](const QString &request) {
        if (request.startsWith(u"<LEAVECHANNEL"_s)) { // an event comes before the answer
            return QStringList{u"<MSG><V mk=\"MSG\"/><ONLINE/></MSG>"_s, reply(u"<KLC r=\"0\"/>"_s)};
        }
        return QStringList{reply(u"<PYLOXUSERS/>"_s)};
    });
    room.onEvent = [&](QStringView name) {
        if (name == u"ONLINE") {
            link.GetPyloxUsers();
            order += u"contacts"_s;
        }
    };
    EXPECT_TRUE(link.LeaveChannel());
    order += u"left"_s;
    EXPECT_EQ(order, (QStringList{u"contacts"_s, u"left"_s}));
}

TEST_F(Link, ALongTrainOfMessagesBehindTheOneWhoseHandlerWaits)
{
    messenger.answerBy([](const QString &request) {
        if (!request.startsWith(u"<LEAVECHANNEL"_s)) {
            return QStringList{reply(u"<PYLOXUSERS/>"_s)};
        }
        QStringList train{u"<MSG><V mk=\"MSG\"/><ONLINE/></MSG>"_s};
        for (int at = 0; at < 3000; ++at) { // more than one block of the buffer
            train += u"<MSG><V mk=\"MSG\"/><RCMSG cid=\"12\" id=\"u2\">some text</RCMSG></MSG>"_s;
        }
        return train += reply(u"<KLC r=\"0\"/>"_s);
    });
    room.onEvent = [&](QStringView name) {
        if (name == u"ONLINE") {
            link.GetPyloxUsers();
        }
    };
    EXPECT_TRUE(link.LeaveChannel());
    EXPECT_EQ(room.events.count(u"RCMSG"_s), 3000);
}

TEST_F(Link, AReplyThatCameBeforeTheEndOfTheConnectionCounts)
{
    messenger.answerBy([this](const QString &request) {
        if (request.startsWith(u"<LEAVECHANNEL"_s)) {
            QTimer::singleShot(0, &messenger, [this] { messenger.closeClient(); });
            return QStringList{u"<MSG><V mk=\"MSG\"/><ONLINE/></MSG>"_s, reply(u"<KLC r=\"0\"/>"_s)};
        }
        return QStringList();
    });
    room.onEvent = [&](QStringView name) {
        if (name == u"ONLINE") {
            link.GetPyloxUsers();
        }
    };
    EXPECT_TRUE(link.LeaveChannel());
    EXPECT_EQ(room.events, (QStringList{u"ONLINE"_s, u"shut-down"_s}));
}

TEST_F(Link, ARequestWithoutReplyIsGivenUp)
{
    answerWith({});
    QTimer::singleShot(150, [this] { clock.advance(31'000); });
    EXPECT_FALSE(link.LeaveChannel());
    answerWith({reply(u"<KLC r=\"0\"/>"_s)});
    EXPECT_TRUE(link.LeaveChannel()) << "the next request goes through";
}

TEST_F(Link, TheEndOfTheConnectionEndsEveryWait)
{
    answerWith({});
    QTimer::singleShot(150, [this] { messenger.closeClient(); });
    EXPECT_FALSE(link.LeaveChannel());
    EXPECT_EQ(room.events, QStringList{u"shut-down"_s});
    EXPECT_FALSE(link.SendMessage(u"x"_s, {})) << "and later requests fail at once";
}

TEST_F(Link, AResetIsTheLastRecordsOwnFailure)
{
    answerWith({});
    QTimer::singleShot(150, [this] { messenger.resetClient(); });
    std::shared_ptr<const clsCommMsg> record;
    QTimer::singleShot(120, [&] { record = link.queue().records().Item(1); });
    EXPECT_FALSE(link.LeaveChannel());
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->RetCode, RetCode::ConnectionReset);
}

TEST_F(Link, ShutDownReleasesWaitsAndStopsWrites)
{
    answerWith({});
    bool second = true;
    QTimer::singleShot(120, [&] { second = link.DestroyChannel(); }); // waits behind the first
    QTimer::singleShot(150, [&] {
        link.setShutDown();
        messenger.send(u"<KLC r=\"0\"/>"_s, u"C1"_s); // so that the second would be next
        link.sendNext();
    });
    EXPECT_FALSE(link.LeaveChannel());
    EXPECT_FALSE(second);
    link.sendNext();
    EXPECT_FALSE(eventually([this] { return messenger.requests.size() > 1; }, 200));
}

TEST_F(Link, MessagesCutAndJoinedAnyhowAndGarbageBetween)
{
    const QByteArray event = QByteArray("<MSG><V mk=\"MSG\"/><RCMSG/></MSG>") + '\0';
    messenger.sendRaw(event + event + event.first(20));
    EXPECT_TRUE(eventually([this] { return room.events.size() == 2; }));
    messenger.sendRaw(event.sliced(20) + QByteArray("noise\0\0<MSG>\0", 13) + QByteArray(5'000'000, 'x') +
                      '\0' + event);
    EXPECT_TRUE(eventually([this] { return room.events.size() == 4; }));
}

TEST_F(Link, ASkinChangeNamesAFileThatExists)
{
    struct Window : Skinnable
    {
        void DoSkinChange() override { ++changes; }
        int changes = 0;
    } window;
    windows.enter(window);
    const QString skin = folder.filePath(u"Red.skn"_s);
    ASSERT_TRUE(QFile(skin).open(QIODevice::WriteOnly));
    messenger.send(u"<SKINCHANGE value=\""_s + folder.filePath(u"None.skn"_s) + u"\"/>"_s);
    messenger.send(u"<SKINCHANGE value=\""_s + skin + u"\"/>"_s);
    EXPECT_TRUE(eventually([&] { return window.changes > 0; }));
    EXPECT_EQ(window.changes, 1);
    EXPECT_EQ(myApp.Skin, skin);
}

} // namespace
