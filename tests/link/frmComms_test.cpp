#include "support/link_fixture.h"
#include "support/recording_room.h"

namespace {

struct Link : LinkFixture
{
    void SetUp() override
    {
        link.setRoomEvents(&room);
        connectLink();
    }

    void answerWith(const QStringList &messages)
    {
        messenger.answerBy([messages](const QString &) { return messages; });
    }

    /// Does it while a request is waited for.
    static void later(const std::function<void()> &function) { QTimer::singleShot(150, function); }

    void askForContactsWhenOnline(const std::function<void()> &then = [] {})
    {
        room.onEvent = [=, this](QStringView name) {
            if (name == u"ONLINE") {
                link.GetPyloxUsers();
                then();
            }
        };
    }

    RecordingRoom room;
};

TEST_F(Link, ResultsOfRequestsByTheirReplies)
{
    const std::tuple<QString, JoinRequest, bool> cases[] = {
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
    for (const auto &[payload, join, leave] : cases) {
        answerWith({reply(payload)});
        EXPECT_EQ(link.RequestJoinChannel(), join) << payload.toStdString();
        EXPECT_EQ(link.LeaveChannel(), leave) << payload.toStdString();
        EXPECT_EQ(link.SendMessage(u"x"_s, {}), !payload.isEmpty()) << payload.toStdString();
        clock.advance(2000);
    }
}

TEST_F(Link, ContactsAreRebuiltFromTheFirstPlaceOn)
{
    const UserList old{{}, {u"old"_s, u"Old"_s}};
    state.lists.PyloxContacts = old;
    answerWith({});
    later([this] { clock.advance(31'000); });
    link.GetPyloxUsers();
    EXPECT_EQ(state.lists.PyloxContacts, old) << "no reply, no change";

    const std::pair<QString, UserList> cases[] = {
        {u"<PYLOXUSERS><U id=\"7\" nick=\"Ann\"/><U id=\"8\"/><U id=\"9\" nick=\"Bob\"/></PYLOXUSERS>"_s,
         {{u"7"_s, u"Ann"_s}, {u"9"_s, u"Bob"_s}}},
        {u"<PYLOXUSERS/>"_s, emptyUserList()},
        {u"<CTL/>"_s, emptyUserList()}, // a reply of another kind
    };
    for (const auto &[payload, contacts] : cases) {
        state.lists.PyloxContacts = old;
        answerWith({reply(payload)});
        link.GetPyloxUsers();
        EXPECT_EQ(state.lists.PyloxContacts, contacts);
    }
}

TEST_F(Link, ALongTrainOfMessagesBehindTheOneWhoseHandlerWaits)
{
    messenger.answerBy([](const QString &request) {
        if (!request.startsWith(u"<LEAVECHANNEL"_s)) {
            return QStringList{reply(u"<PYLOXUSERS/>"_s)};
        }
        QStringList train{event(u"<ONLINE/>"_s)};
        for (int at = 0; at < 3000; ++at) { // more than one block of the buffer
            train += event(u"<RCMSG cid=\"12\" id=\"u2\">some text</RCMSG>"_s);
        }
        return train += reply(u"<KLC r=\"0\"/>"_s);
    });
    QStringList order;
    askForContactsWhenOnline([&] { order += u"contacts"_s; });
    EXPECT_TRUE(link.LeaveChannel());
    order += u"left"_s;
    EXPECT_EQ(order, (QStringList{u"contacts"_s, u"left"_s}));
    EXPECT_EQ(room.events.count(u"RCMSG"_s), 3000);
}

TEST_F(Link, AReplyThatCameBeforeTheEndOfTheConnectionCounts)
{
    messenger.answerBy([this](const QString &request) {
        if (request.startsWith(u"<LEAVECHANNEL"_s)) {
            QTimer::singleShot(0, &messenger, [this] { messenger.closeClient(); });
            return QStringList{event(u"<ONLINE/>"_s), reply(u"<KLC r=\"0\"/>"_s)};
        }
        return QStringList();
    });
    askForContactsWhenOnline();
    EXPECT_TRUE(link.LeaveChannel());
    EXPECT_EQ(room.events, (QStringList{u"ONLINE"_s, u"shut-down"_s}));
}

TEST_F(Link, TheEndOfTheConnectionEndsEveryWait)
{
    answerWith({});
    std::shared_ptr<const clsCommMsg> record;
    later([&] {
        record = link.queue().records().Item(1);
        messenger.resetClient();
    });
    EXPECT_FALSE(link.LeaveChannel());
    EXPECT_EQ(room.events, QStringList{u"shut-down"_s});
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->RetCode, RetCode::ConnectionReset) << "which is the last record's own failure";
    EXPECT_FALSE(link.SendMessage(u"x"_s, {})) << "and later requests fail at once";
}

TEST_F(Link, WhoComesAfterTheEndOfTheConnectionIsToldOfIt)
{
    link.setRoomEvents(nullptr);
    messenger.closeClient();
    EXPECT_TRUE(eventually([this] { return !link.LeaveChannel(); }));
    room.events.clear();
    ASSERT_TRUE(eventually([this] {
        link.setRoomEvents(&room);
        return !room.events.isEmpty();
    }));
    EXPECT_EQ(room.events.first(), u"shut-down"_s);
}

TEST_F(Link, ShutDownReleasesWaitsAndStopsWrites)
{
    answerWith({});
    bool second = true;
    QTimer::singleShot(120, [&] { second = link.DestroyChannel(); }); // waits behind the first
    later([&] {
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
    const QByteArray message = event(u"<RCMSG/>"_s).toLatin1() + '\0';
    messenger.sendRaw(message + message + message.first(20));
    EXPECT_TRUE(eventually([this] { return room.events.size() == 2; }));
    messenger.sendRaw(message.sliced(20) + QByteArray("noise\0\0<MSG>\0", 13) + QByteArray(5'000'000, 'x') +
                      '\0' + message);
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
