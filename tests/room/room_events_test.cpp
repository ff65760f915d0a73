#include "windowless_room_fixture.h"

namespace {

TEST_F(Room, AThousandReturnsOfTheServerAtOnce)
{
    messenger.sendRaw(QByteArray(event(u"<ONLINE/>"_s).toLatin1() + '\0').repeated(5000));
    EXPECT_TRUE(eventually([this] { return board.lines.size() == 5000 && !messenger.requests.isEmpty(); }));
    receive({});
    EXPECT_LE(messenger.requests.size(), 3) << "the contacts are asked for once, not once a message";
}

TEST_F(Room, MembersComeGoAndChange)
{
    join();
    EXPECT_EQ(
        shownAfter(
            uR"(<KCC cid="13" r="0"><E id="u5" nm="No" p="1"/></KCC>)"
            uR"(<KCC cid="12" r="0"><E id="u2" nm="Bob" p="1" s="12" m="7"/><E/><E id="u3" nm="Cid" p="1"/></KCC>)"
            uR"(<KCC cid="12" r="0"><E id="u2" p="1" s="0" m="0"/><E id="u3" p="0"/></KCC>)"
            uR"(<KCC cid="12" r="4294967296"/>)"_s),
        (QStringList{u"4 User Bob has entered the room."_s, u"4 User Cid has entered the room."_s,
                     u"4 User Cid has left the room."_s,
                     u"5 Error in getting channel contents: 4294967296"_s}));
    ASSERT_NE(member(u"u2"_s), nullptr);
    EXPECT_EQ(member(u"u2"_s)->Status, 12) << "zero leaves the status alone here";
    EXPECT_EQ(member(u"u3"_s), nullptr);

    receive(uR"(<STATUSMOOD id="u2" s="0" m="8x"/><STATUSMOOD id="u2" s="5"/>)"
            uR"(<NAMECHANGE id="u1" n="Anna"/><NAMECHANGE id="u2" n="Robert"/>)"_s);
    EXPECT_TRUE(member(u"u2"_s)->Status == 0 && member(u"u2"_s)->Mood == 8) << "but here it does not";
    EXPECT_EQ(member(u"u1"_s)->Nickname + member(u"u2"_s)->Nickname, u"AnnaBob"_s);

    AddToList(state.lists, u'P', u"u2"_s, u"Friend"_s);
    receive(uR"(<NAMECHANGE id="u2" n="Rob"/>)"_s);
    EXPECT_EQ(GetContactName(state.lists, u"u2"_s, {}), u"Rob"_s);
    options.ShowEnterLeave = false;
    EXPECT_EQ(shownAfter(uR"(<KCC cid="12" r="0"><E id="u2" p="0"/></KCC>)"_s), QStringList());
    EXPECT_EQ(member(u"u2"_s), nullptr);
}

TEST_F(Room, MessagesAreShownByWhoSentWhat)
{
    join();
    AddToList(state.lists, u'I', u"u6"_s, u"Pest"_s);
    shownAfter(uR"(<KCC cid="12" r="0"><E id="u2" nm="Bob" p="1"/></KCC>)"_s);
    const std::pair<QString, QStringList> cases[] = {
        {u"cid=\"12\" id=\"u2\" tid=\"0\">\\<SMSG\\>hi\u0001\\<SMSG\\>lost"_s, {u"1 Bob: hi"_s}},
        {u"cid=\"12\" id=\"u2\">\\<SMSG\\>a\u0001junk\u0001\\<SMSG\\>b\u0001"_s,
         {u"1 Bob: a"_s, u"1 Bob: b"_s}},
        {u"id=\"u2\">\\<SMSG\\>no room named\u0001"_s, {u"1 Bob: no room named"_s}},
        {u"cid=\"13\" id=\"u2\">\\<SMSG\\>elsewhere\u0001"_s, {}},
        {u"cid=\"12\" id=\"u5\">\\<SMSG\\>stranger\u0001"_s, {}},
        {u"cid=\"12\" id=\"u6\">\\<EMOT\\>x\u0002 user\\=P\u0003\u0001"_s, {}},
        {u"cid=\"12\" id=\"u5\">\\<EMOT\\>%U% waves\u0002 user\\=Eve\u0003 tuser\\=Bob\u0003\u0001"_s,
         {u"2 Eve: to Bob: %U% waves"_s}},
        {u"cid=\"12\" id=\"u2\">\\<EMOT\\>no attributes\u0001"_s, {}},
        {u"cid=\"13\" id=\"u2\" tid=\"u1\">body"_s, {u"u2 Bob body"_s}},
        {u"cid=\"12\" id=\"u5\" tid=\"u1\">body"_s, {u"u5 UNKNOWN body"_s}},
        {u"cid=\"12\" id=\"u6\" tid=\"u1\">body"_s, {}},
    };
    for (const auto &[message, expected] : cases) {
        EXPECT_EQ(shownAfter(u"<RCMSG "_s + message + u"</RCMSG>"), expected) << message.toStdString();
    }
    member(u"u2"_s)->Highlight = true;
    EXPECT_EQ(shownAfter(u"<RCMSG cid=\"12\" id=\"u2\">\\<SMSG\\>hi\u0001</RCMSG>"_s),
              QStringList{u"1! Bob: hi"_s});
}

TEST_F(Room, KicksAndClosings)
{
    join();
    const QString drop = u"<RCCMD cid=\"%1\" id=\"%2\">DROPUSER userid\\=%3\u0003 nick\\=%4\u0003</RCCMD>"_s;
    EXPECT_EQ(shownAfter(drop.arg(u"12"_s, u"u9"_s, u"u5"_s, u"Eve"_s) +
                         drop.arg(u"12"_s, u"nobody"_s, u"u1"_s, u"Ann"_s) +
                         drop.arg(u"13"_s, u"u9"_s, u"u1"_s, u"Ann"_s) +
                         uR"(<RCCMD cid="12" id="u9">DANCE</RCCMD><CLD cid="13"/>)"_s),
              QStringList{u"5 User 'Eve' has been kicked from the room!"_s});
    EXPECT_TRUE(state.InRoom);
    EXPECT_EQ(shownAfter(drop.arg(u"12"_s, u"u9"_s, u"u1"_s, u"Ann"_s)),
              (QStringList{u"5 User 'Ann' has been kicked from the room!"_s,
                           u"4 You have successfully left the Room!"_s}));
    EXPECT_TRUE(!state.InRoom && prompts.boxes.isEmpty());
}

TEST_F(Room, TheMessengerAndItsServer)
{
    EXPECT_EQ(shownAfter(u"<OFFLINE/>"_s), QStringList()) << "no room, no notice";
    join();
    EXPECT_EQ(shownAfter(u"<OFFLINE/>"_s), QStringList{u"5 Currently Pylox is offline!"_s});
    EXPECT_EQ(state.CurrentRoomID, 0);
    messenger.requests.clear();
    EXPECT_EQ(shownAfter(u"<ONLINE/>"_s), QStringList{u"8 Pylox is now online!"_s});
    EXPECT_EQ(messenger.requests, QStringList{u"<GETPYLOXUSERS/>"_s});
    options.ShowFriendOnline = false;
    const int draws = board.draws;
    messenger.send(uR"(<USERONLINE nick="Bob"/><STATUSMOOD id="u1" s="1" m="1"/>)"_s);
    EXPECT_TRUE(eventually([&] { return board.draws > draws; }));
    EXPECT_EQ(shown(), QStringList());
    options.ShowFriendOnline = true;
    join();
    messenger.closeClient();
    EXPECT_TRUE(eventually([this] { return !state.InRoom; }));
    EXPECT_EQ(shown(), QStringList{u"5 The connection to Pylox has been closed!"_s});
}

} // namespace
