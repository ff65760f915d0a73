#include "core/options.h"
#include "emotions/colEmotions.h"
#include "room/admission.h"
#include "room/colChatters.h"
#include "room/composing.h"
#include "room/exit_road.h"
#include "room/member_menu.h"
#include "room/room_events.h"
#include "room/room_lifecycle.h"
#include "support/link_fixture.h"
#include "support/recording_view.h"

#include <QFont>

namespace {

struct Room : LinkFixture
{
    void SetUp() override
    {
        connectLink();
        link.setRoomEvents(&events);
        state.MyUserID = u"u1"_s;
        state.MyNickname = u"Ann"_s;
        answer();
    }

    /// Answers this request so, after an unsolicited message if one is named; all others succeed.
    void answer(const QString &name = u"none"_s, const QString &payload = {}, const QString &before = {})
    {
        messenger.answerBy([=](const QString &request) {
            if (request.startsWith(u'<' + name)) {
                return (before.isEmpty() ? QStringList() : QStringList{event(before)}) +
                       QStringList{reply(payload)};
            }
            if (request.startsWith(u"<GETCHANNELCONTENTS")) {
                return QStringList{
                    reply(uR"(<KCC cid="12" r="0" t="2" id="u9"><E id="u9" nm="Olga" s="11" m="3"/>)"
                          uR"(<E id="u1" nm="Ann" s="0" m="0"/></KCC>)"_s)};
            }
            const bool isAsking = request.startsWith(u"<REQUESTJOINCHANNEL");
            return QStringList{reply(isAsking ? uR"(<AJC r="0"/>)"_s : uR"(<KLC r="0"/>)"_s)};
        });
    }

    /// An unsolicited message, handled when this returns.
    void receive(const QString &payload)
    {
        messenger.send(payload);
        messenger.send(uR"(<USERONLINE nick="end"/>)"_s);
        ASSERT_TRUE(eventually(
            [this] { return board.lines.removeAll(u"6 Your friend 'end' has just come online!"_s) > 0; }));
    }

    void askToJoin() { lifecycle.joinFrom(CommandLine(QStringList{u"-cid12"_s, u"-cnmLounge~"_s})); }

    /// What the board shows then; it is empty afterwards.
    QStringList join()
    {
        askToJoin();
        receive(uR"(<AJC cid="12" r="0" tid="u9"/>)"_s);
        admission.check();
        return shown();
    }

    void own(qint32 roomId = 12)
    {
        state.CurrentRoomID = roomId;
        state.IsRoomOwner = state.InRoom = true;
        state.RoomCategory = u"Talk"_s;
        state.RoomName = u"Mine"_s;
        lifecycle.EnterRoom();
    }

    /// The board, which is empty then.
    QStringList shown() { return std::exchange(board.lines, {}); }

    [[nodiscard]] auto member(const QString &id) const { return chatters.withId(id); }

    Options options;
    colChatters chatters;
    RecordingView board;
    RoomLifecycle lifecycle{state, chatters, link, board, prompts};
    RoomEvents events{state, options, chatters, link, lifecycle, board};
    Admission admission{state, chatters, link, board};
    Composing composing{state, link, board};
};

const QString closed = u"4 The room you are in has been closed!"_s;

TEST_F(Room, AskingWaitingAndBeingLetIn)
{
    askToJoin();
    EXPECT_EQ(shown(), (QStringList{u"3 Requesting to join room: Invited to join - Lounge"_s,
                                    u"3 Waiting for server response...."_s}));
    EXPECT_EQ(board.caption, u"Invited to join - Lounge"_s);
    EXPECT_TRUE(member(u"u1"_s)->Pending);
    admission.check();
    EXPECT_FALSE(state.InRoom);

    receive(uR"(<AJC cid="13" r="200"/><AJC cid="12" r="0" tid="u9"/>)"_s);
    EXPECT_FALSE(state.InRoom) << "the next look lets the user in";
    admission.check();
    EXPECT_TRUE(state.InRoom);
    EXPECT_EQ(board.lines, QStringList{u"4 You are allowed to join the chat room!"_s});
    EXPECT_EQ(messenger.requests.sliced(1),
              (QStringList{uR"(<NOTIFYJOINCHANNEL cid="12" id="u1" tid="u9" cnm="Lounge"/>)"_s,
                           uR"(<GETCHANNELCONTENTS cid="12" st="1"/>)"_s}));
    EXPECT_TRUE(member(u"u9"_s)->Owner);
    EXPECT_EQ(member(u"u9"_s)->Mood, 3);
    EXPECT_EQ(member(u"u1"_s)->Status, 0) << "the room's word counts";
}

TEST_F(Room, ARoomThatTheUserHasFoundMeanwhileStays)
{
    own();
    askToJoin();
    EXPECT_TRUE(messenger.requests.isEmpty());
    EXPECT_TRUE(state.RoomName == u"Mine" && state.IsRoomOwner);

    lifecycle.ResetRoom();
    answer(u"REQUESTJOINCHANNEL"_s, uR"(<AJC r="5"/>)"_s);
    QTimer::singleShot(0, [this] { own(13); });
    askToJoin();
    EXPECT_TRUE(prompts.boxes.isEmpty() && state.InRoom && state.CurrentRoomID == 13);
}

TEST_F(Room, WhoGoesOnWhileTheAnswerToLeavingIsAwaitedHasLeft)
{
    join();
    QTimer::singleShot(0, [this] {
        lifecycle.endDeparture();
        EXPECT_EQ(lifecycle.ShownRoomID(), 0);
        own(13);
    });
    lifecycle.LeaveRoom(false);
    EXPECT_EQ(shown(), QStringList{u"3 Created room: Talk - Mine"_s});
    lifecycle.endDeparture();
    EXPECT_TRUE(state.InRoom) << "nothing is under way";
}

TEST_F(Room, WhatComesBeforeTheWindowIsReady)
{
    receive(uR"(<KCC cid="0" r="0"><E id="u1" nm="Ann" p="1"/></KCC><CLD cid="0"/>)"_s);
    EXPECT_EQ(chatters.Count(), 0) << "there is no room";
    EXPECT_TRUE(board.lines.isEmpty());

    const QString asked = uR"(<AJC r="0"/>)"_s;
    answer(u"REQUESTJOINCHANNEL"_s, asked,
           uR"(<KCC cid="12" r="0"><E id="u1" nm="Ann" p="1"/><E id="u5" nm="Eve" p="1"/></KCC>)"_s);
    askToJoin();
    EXPECT_EQ(chatters.Count(), 1);
    EXPECT_TRUE(member(u"u1"_s)->Pending) << "nobody is let in by a list of members";

    lifecycle.ResetRoom();
    answer(u"REQUESTJOINCHANNEL"_s, asked, uR"(<AJC cid="12" r="0" tid="u9"/>)"_s);
    askToJoin();
    EXPECT_TRUE(!member(u"u1"_s)->Pending && member(u"u1"_s)->ToUserID == u"u9") << "an answer is kept";
}

TEST_F(Room, AThousandReturnsOfTheServerAtOnce)
{
    messenger.sendRaw(QByteArray(event(u"<ONLINE/>"_s).toLatin1() + '\0').repeated(5000));
    EXPECT_TRUE(eventually([this] { return board.lines.size() == 5000 && !messenger.requests.isEmpty(); }));
    receive({});
    EXPECT_LE(messenger.requests.size(), 3) << "the contacts are asked for once, not once a message";
}

TEST_F(Room, RefusalsAndFailuresToJoin)
{
    for (const auto &[code, notice] : {std::pair{200, u"5 Rejected from joining room: 200"_s},
                                       std::pair{109, u"5 Error to join room: 109"_s}}) {
        askToJoin();
        receive(uR"(<AJC cid="12" r="%1"/>)"_s.arg(code));
        EXPECT_EQ(board.lines.last(), notice);
        EXPECT_TRUE(state.CurrentRoomID == 0 && chatters.Count() == 0 && board.caption.isEmpty());
    }
    answer(u"REQUESTJOINCHANNEL"_s, uR"(<AJC r="109"/>)"_s);
    askToJoin();
    EXPECT_EQ(prompts.boxes,
              QStringList{u"Stop: Room Error: Could not send request to join room!  Please try again."_s});
    EXPECT_TRUE(state.CurrentRoomID == 0 && lifecycle.ShownRoomID() == 0);
}

TEST_F(Room, ContentsThatNeverBecomeComplete)
{
    const std::tuple<QString, QString, qsizetype> cases[] = {
        {uR"(<KCC r="7"/>)"_s, u"7"_s, 1},
        {uR"(<KCC r="0" t="5"><E id="u2" nm="Bob"/></KCC>)"_s, u"incomplete"_s, 2},
        {uR"(<KCC r="0" t="5"><E nm="nobody"/></KCC>)"_s, u"incomplete"_s, 1},
        {uR"(<KCC r="0"><E id="u2"/></KCC>)"_s, u"incomplete"_s, 2},
        {uR"(<KCC r="0" t="5"/>)"_s, u"incomplete"_s, 1},
        {u"<ACKSM/>"_s, u"no reply"_s, 1},
        {u""_s, u"no reply"_s, 1},
    };
    for (const auto &[contents, error, members] : cases) {
        answer(u"GETCHANNELCONTENTS"_s, contents);
        EXPECT_EQ(join().last(), u"5 Error in getting channel contents: "_s + error)
            << contents.toStdString();
        EXPECT_EQ(chatters.Count(), members);
        EXPECT_TRUE(state.InRoom) << "the room is joined all the same";
        lifecycle.ResetRoom();
    }
}

TEST_F(Room, ClosedWhileTheContentsAreFetched)
{
    answer(u"GETCHANNELCONTENTS"_s, uR"(<KCC r="0" t="1" id="u9"><E id="u9" nm="Olga"/></KCC>)"_s,
           uR"(<CLD cid="12"/>)"_s);
    EXPECT_EQ(join().last(), closed);
    EXPECT_EQ(chatters.Count(), 0) << "nobody is put into a room that is gone";
}

TEST_F(Room, MembersComeGoAndChange)
{
    join();
    receive(
        uR"(<KCC cid="13" r="0"><E id="u5" nm="No" p="1"/></KCC>)"
        uR"(<KCC cid="12" r="0"><E id="u2" nm="Bob" p="1" s="12" m="7"/><E/><E id="u3" nm="Cid" p="1"/></KCC>)"
        uR"(<KCC cid="12" r="0"><E id="u2" p="1" s="0" m="0"/><E id="u3" p="0"/></KCC>)"
        uR"(<KCC cid="12" r="4294967296"/>)"_s);
    EXPECT_EQ(shown(), (QStringList{u"4 User Bob has entered the room."_s,
                                    u"4 User Cid has entered the room."_s, u"4 User Cid has left the room."_s,
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
    receive(uR"(<KCC cid="12" r="0"><E id="u2" p="0"/></KCC>)"_s);
    EXPECT_TRUE(board.lines.isEmpty());
    EXPECT_EQ(member(u"u2"_s), nullptr);
}

TEST_F(Room, MessagesAreShownByWhoSentWhat)
{
    join();
    AddToList(state.lists, u'I', u"u6"_s, u"Pest"_s);
    receive(uR"(<KCC cid="12" r="0"><E id="u2" nm="Bob" p="1"/></KCC>)"_s);
    shown();
    const std::tuple<QString, QStringList, QStringList> cases[] = {
        {u"cid=\"12\" id=\"u2\" tid=\"0\">\\<SMSG\\>hi\u0001\\<SMSG\\>lost"_s, {u"1 Bob: hi"_s}, {}},
        {u"cid=\"12\" id=\"u2\">\\<SMSG\\>a\u0001junk\u0001\\<SMSG\\>b\u0001"_s,
         {u"1 Bob: a"_s, u"1 Bob: b"_s},
         {}},
        {u"id=\"u2\">\\<SMSG\\>no room named\u0001"_s, {u"1 Bob: no room named"_s}, {}},
        {u"cid=\"13\" id=\"u2\">\\<SMSG\\>elsewhere\u0001"_s, {}, {}},
        {u"cid=\"12\" id=\"u5\">\\<SMSG\\>stranger\u0001"_s, {}, {}},
        {u"cid=\"12\" id=\"u6\">\\<EMOT\\>x\u0002 user\\=P\u0003\u0001"_s, {}, {}},
        {u"cid=\"12\" id=\"u5\">\\<EMOT\\>%U% waves\u0002 user\\=Eve\u0003 tuser\\=Bob\u0003\u0001"_s,
         {u"2 Eve: to Bob: %U% waves"_s},
         {}},
        {u"cid=\"12\" id=\"u2\">\\<EMOT\\>no attributes\u0001"_s, {}, {}},
        {u"cid=\"13\" id=\"u2\" tid=\"u1\">body"_s, {}, {u"u2 Bob body"_s}},
        {u"cid=\"12\" id=\"u5\" tid=\"u1\">body"_s, {}, {u"u5 UNKNOWN body"_s}},
        {u"cid=\"12\" id=\"u6\" tid=\"u1\">body"_s, {}, {}},
    };
    for (const auto &[message, lines, whispers] : cases) {
        receive(u"<RCMSG "_s + message + u"</RCMSG>"_s);
        EXPECT_EQ(shown(), lines) << message.toStdString();
        EXPECT_EQ(std::exchange(board.whispers, {}), whispers) << message.toStdString();
    }
    member(u"u2"_s)->Highlight = true;
    receive(u"<RCMSG cid=\"12\" id=\"u2\">\\<SMSG\\>hi\u0001</RCMSG>"_s);
    EXPECT_EQ(board.lines, QStringList{u"1! Bob: hi"_s});
}

TEST_F(Room, KicksAndClosings)
{
    join();
    const QString drop = u"<RCCMD cid=\"%1\" id=\"%2\">DROPUSER userid\\=%3\u0003 nick\\=%4\u0003</RCCMD>"_s;
    receive(drop.arg(u"12"_s, u"u9"_s, u"u5"_s, u"Eve"_s) +
            drop.arg(u"12"_s, u"nobody"_s, u"u1"_s, u"Ann"_s) +
            drop.arg(u"13"_s, u"u9"_s, u"u1"_s, u"Ann"_s) +
            uR"(<RCCMD cid="12" id="u9">DANCE</RCCMD><CLD cid="13"/>)"_s);
    EXPECT_EQ(shown(), QStringList{u"5 User 'Eve' has been kicked from the room!"_s});
    EXPECT_TRUE(state.InRoom);

    receive(drop.arg(u"12"_s, u"u9"_s, u"u1"_s, u"Ann"_s));
    EXPECT_EQ(shown(), (QStringList{u"5 User 'Ann' has been kicked from the room!"_s,
                                    u"4 You have successfully left the Room!"_s}));
    EXPECT_FALSE(state.InRoom);
    EXPECT_TRUE(prompts.boxes.isEmpty());
}

TEST_F(Room, TheOwnersRequesters)
{
    receive(uR"(<QJC id="u2" nm="Bob"/>)"_s);
    EXPECT_TRUE(board.lines.isEmpty()) << "only an owner is asked";
    own();
    EXPECT_EQ(board.lines, QStringList{u"3 Created room: Talk - Mine"_s});
    AddToList(state.lists, u'A', u"u3"_s, u"Cid"_s);
    AddToList(state.lists, u'P', u"u4"_s, u"Dora"_s);
    const std::pair<AcceptMode, QStringList> cases[] = {
        {AcceptMode::Everyone, {u"u2"_s, u"u3"_s, u"u4"_s}},
        {AcceptMode::AcceptList, {u"u3"_s}},
        {AcceptMode::Contacts, {u"u4"_s}},
        {static_cast<AcceptMode>(0), {}},
    };
    for (const auto &[mode, expected] : cases) {
        options.AcceptMode = mode;
        receive(uR"(<QJC id="u2" nm="Bob" cid="12"/><QJC id="u3" nm="Cid"/><QJC id="u4" nm="D"/>)"
                uR"(<QJC id="u7" nm="E" cid="99"/>)"_s);
        EXPECT_EQ(chatters.Count(), 4);
        QStringList marked;
        for (; chatters.Count() > 1; chatters.Remove(2)) {
            EXPECT_TRUE(chatters.Item(2)->Pending);
            marked += chatters.Item(2)->AutoAccept ? QStringList{chatters.Item(2)->ID} : QStringList{};
        }
        EXPECT_EQ(marked, expected);
    }
    EXPECT_TRUE(board.lines.contains(u"4 User 'Dora' wants to join your chat room."_s));
    EXPECT_TRUE(board.lines.contains(u"4 Accept or Reject 'Dora' from your pending list."_s));
}

TEST_F(Room, TheOwnerLetsInWhoIsMarked)
{
    own();
    receive(uR"(<QJC id="u2" nm="Bob"/><QJC id="u2" nm="Bob"/><QJC id="u3" nm="Cid"/>)"_s);
    member(u"u3"_s)->AutoAccept = false;
    shown();
    admission.check();
    EXPECT_EQ(shown(), QStringList{u"3 User Bob has just joined the room."_s});
    EXPECT_TRUE(!member(u"u2"_s)->Pending && member(u"u3"_s)->Pending);

    answer(u"ALLOWJOINCHANNEL"_s, uR"(<ADC r="0"/>)"_s, // gone before the answer
           uR"(<KCC cid="12" r="0"><E id="u3" p="0"/></KCC>)"_s);
    member(u"u3"_s)->AutoAccept = true;
    admission.check();
    EXPECT_EQ(shown(), QStringList{u"4 User Cid has left the room."_s});

    receive(uR"(<QJC id="u3" nm="Cid"/>)"_s);
    answer(u"ALLOWJOINCHANNEL"_s, uR"(<ADC r="3"/>)"_s);
    admission.check();
    EXPECT_TRUE(member(u"u3"_s)->Pending && !member(u"u3"_s)->AutoAccept);
}

TEST_F(Room, LeavingAndClosing)
{
    lifecycle.LeaveRoom(true);
    EXPECT_TRUE(prompts.boxes.isEmpty()) << "there is no room to leave";
    join();
    prompts.answer = PromptAnswer::No;
    lifecycle.LeaveRoom(true);
    EXPECT_TRUE(state.InRoom);
    prompts.answer = PromptAnswer::Yes;
    answer(u"LEAVECHANNEL"_s, uR"(<KLC r="1"/>)"_s);
    lifecycle.LeaveRoom(true);
    EXPECT_EQ(shown(), QStringList{u"5 You have left the room but there was a server error!"_s});
    EXPECT_FALSE(state.InRoom);
    own();
    lifecycle.CloseRoom(true);
    EXPECT_EQ(shown().last(), u"4 Your room was closed successfully!"_s);
    const QString leave = u"Question: Leave Room: Do you really wish to leave the current room you are in?"_s;
    EXPECT_EQ(prompts.boxes,
              (QStringList{leave, leave, u"Question: Close Room: Do you really wish to close your room?"_s}));

    join();
    prompts.whileOpen = [this] {
        messenger.send(uR"(<CLD cid="12"/>)"_s);
        ASSERT_TRUE(eventually([this] { return !state.InRoom; }));
    };
    lifecycle.LeaveRoom(true);
    EXPECT_EQ(board.lines, QStringList{closed});
}

TEST_F(Room, TheMessengerAndItsServer)
{
    receive(u"<OFFLINE/>"_s);
    EXPECT_TRUE(board.lines.isEmpty()) << "no room, no notice";
    join();
    receive(u"<OFFLINE/>"_s);
    EXPECT_EQ(shown(), QStringList{u"5 Currently Pylox is offline!"_s});
    EXPECT_EQ(state.CurrentRoomID, 0);
    messenger.requests.clear();
    receive(u"<ONLINE/>"_s);
    EXPECT_EQ(board.lines, QStringList{u"8 Pylox is now online!"_s});
    EXPECT_EQ(messenger.requests, QStringList{u"<GETPYLOXUSERS/>"_s});
    options.ShowFriendOnline = false;
    const int draws = board.draws;
    messenger.send(uR"(<USERONLINE nick="Bob"/><STATUSMOOD id="u1" s="1" m="1"/>)"_s);
    EXPECT_TRUE(eventually([&] { return board.draws > draws; }));
    EXPECT_EQ(board.lines.size(), 1);
    options.ShowFriendOnline = true;

    join();
    messenger.closeClient();
    EXPECT_TRUE(eventually([this] { return !board.lines.isEmpty(); }));
    EXPECT_EQ(board.lines, QStringList{u"5 The connection to Pylox has been closed!"_s});
    EXPECT_FALSE(state.InRoom);
}

/// The entries, "-" for a line between them; "!" before one that cannot be chosen, "*" before a checked one.
QString described(const MemberMenu &menu)
{
    QStringList all{menu.title};
    for (const MemberMenuEntry &entry : menu.entries) {
        all += entry.action == MemberAction::Separator
                   ? u"-"_s
                   : QString((entry.enabled ? u""_s : u"!"_s) +
                             (entry.checked.value_or(false) ? u"*"_s : u""_s) + entry.text);
    }
    return all.join(u'|');
}

TEST_F(Room, TheMenuOfAMember)
{
    join();
    receive(uR"(<QJC id="u5" nm="Eve" cid="12"/>)"_s);
    const QString plain =
        u"User #u9|User Details|-|Auto Accept User|Ignore User|!Drop User|-|Private Message|"
        "Highlight Messages|-|Add User to Pylox"_s;
    const auto menuOf = [this](qsizetype position) {
        return described(memberMenu(chatters, position, state));
    };
    EXPECT_EQ(menuOf(1), u""_s) << "the user's own row";
    EXPECT_EQ(menuOf(2), plain);
    EXPECT_EQ(menuOf(3), u""_s) << "nobody";
    member(u"u9"_s)->Highlight = state.IsRoomOwner = true;
    AddToList(state.lists, u'P', u"u9"_s, u"Olga, my friend"_s);
    EXPECT_EQ(menuOf(2), QString(plain)
                             .replace(u"!Drop"_s, u"Drop"_s)
                             .replace(u"High"_s, u"*High"_s)
                             .replace(u"Add User"_s, u"!Add User"_s));
    receive(uR"(<QJC id="u5" nm="Eve" cid="12"/>)"_s);
    EXPECT_EQ(menuOf(3), u"Pending User Menu|Accept User|Reject User|-|User Details"_s);
    state.IsRoomOwner = false;
    EXPECT_EQ(menuOf(3), u""_s);
}

TEST_F(Room, WhatTheMenuOfAMemberDoes)
{
    MemberActions actions(state, chatters, link, board);
    own();
    options.AcceptMode = static_cast<AcceptMode>(0);
    receive(uR"(<QJC id="u2" nm="Bob"/><QJC id="u3" nm="Cid"/>)"_s);
    MemberMenu bob = memberMenu(chatters, 2, state);
    MemberMenu cid = memberMenu(chatters, 3, state);
    shown();
    messenger.requests.clear();

    answer(u"ALLOWJOINCHANNEL"_s, uR"(<KLC r="1"/>)"_s);
    actions.perform(MemberAction::Accept, bob);
    EXPECT_TRUE(member(u"u2"_s)->Pending && board.lines.isEmpty()) << "a failure changes nothing";
    answer();
    actions.perform(MemberAction::Accept, bob);
    actions.perform(MemberAction::Reject, cid);
    EXPECT_EQ(shown(), (QStringList{u"3 User Bob has just joined the room."_s,
                                    u"3 User Cid has been rejected from the room."_s}));
    EXPECT_FALSE(member(u"u2"_s)->Pending);
    EXPECT_EQ(member(u"u3"_s), nullptr);
    actions.perform(MemberAction::Ignore, cid);
    EXPECT_EQ(state.lists.IgnoreList, emptyUserList()) << "nobody is at that position any more";
    cid.position = 2;
    actions.perform(MemberAction::Ignore, cid);
    EXPECT_EQ(state.lists.IgnoreList, emptyUserList()) << "somebody else is";

    bob = memberMenu(chatters, 2, state);
    messenger.requests.clear();
    for (const MemberAction action : {MemberAction::Ignore, MemberAction::AutoAccept, MemberAction::Highlight,
                                      MemberAction::PrivateMessage, MemberAction::UserDetails,
                                      MemberAction::AddToMessenger, MemberAction::Drop}) {
        actions.perform(action, bob);
    }
    EXPECT_TRUE(IsInList(state.lists.IgnoreList, u"u2"_s) && IsInList(state.lists.AcceptList, u"u2"_s));
    EXPECT_TRUE(member(u"u2"_s)->Highlight);
    EXPECT_EQ(board.whispers, QStringList{u"u2 Bob "_s});
    EXPECT_EQ(messenger.requests.size(), 3) << qPrintable(messenger.requests.join(u'\n'));
    EXPECT_TRUE(messenger.requests.last().contains(u"DROPUSER userid"_s));
}

TEST_F(Room, SendingShowsTheOwnCopyOnlyWhenTaken)
{
    EXPECT_FALSE(composing.send(u"too early"_s, QFont()));
    join();
    messenger.requests.clear();
    EXPECT_FALSE(composing.send(u""_s, QFont()) || composing.send(u"\u0001"_s, QFont()));
    EXPECT_TRUE(messenger.requests.isEmpty());

    EXPECT_TRUE(composing.send(u"hi <all>"_s, QFont()));
    EXPECT_EQ(messenger.requests,
              QStringList{u"<CMSG cid=\"12\" id=\"u1\">\\<SMSG\\>hi \\<all\\>\u0001</CMSG>"_s});
    EXPECT_EQ(shown(), QStringList{u"0 Ann: hi <all>"_s});

    bool second = true;
    QTimer::singleShot(0, [&] { second = composing.send(u"while the first is under way"_s, QFont()); });
    answer(u"CMSG"_s, u""_s);
    EXPECT_FALSE(composing.send(u"lost"_s, QFont()));
    EXPECT_FALSE(second);
    EXPECT_TRUE(board.lines.isEmpty());

    answer(u"CMSG"_s, u"<ACKSM/>"_s, uR"(<CLD cid="12"/>)"_s);
    EXPECT_TRUE(composing.send(u"taken, and the room closed"_s, QFont()));
    EXPECT_EQ(board.lines.last(), closed);
}

TEST_F(Room, EmotionsGoToTheRoomOrToAMember)
{
    const clsEmotions hug{u"Hug"_s, u"%U% hugs all"_s, u"%U% hugs %O%"_s};
    composing.sendEmotion(hug, nullptr);
    EXPECT_TRUE(messenger.requests.isEmpty()) << "in no room";
    join();
    AddToList(state.lists, u'P', u"u9"_s, u"My friend"_s);
    messenger.requests.clear();
    composing.sendEmotion(hug, nullptr);
    composing.sendEmotion(hug, member(u"u9"_s).get());
    EXPECT_EQ(messenger.requests,
              (QStringList{
                  u"<CMSG cid=\"12\" id=\"u1\">\\<EMOT\\>%U% hugs all\u0002 user\\=Ann\u0003\u0001</CMSG>"_s,
                  u"<CMSG cid=\"12\" id=\"u1\">\\<EMOT\\>%U% hugs %O%\u0002 user\\=Ann\u0003 "
                  "tuser\\=Olga\u0003\u0001</CMSG>"_s}));
    EXPECT_EQ(shown(), (QStringList{u"2 Ann: %U% hugs all"_s, u"2 Ann: to My friend: %U% hugs %O%"_s}));
    answer(u"CMSG"_s, u""_s);
    composing.sendEmotion(hug, nullptr);
    EXPECT_TRUE(board.lines.isEmpty()) << "not taken, not shown";
}

TEST_F(Room, TheWayOutLeavesTheRoomAndEndsEvenWithoutAnAnswer)
{
    ExitRoad exitRoad(state, lifecycle, link);
    bool ended = false;
    QObject::connect(&exitRoad, &ExitRoad::ended, [&] { ended = true; });
    join();
    messenger.answerBy([](const QString &) { return QStringList(); });
    messenger.requests.clear();
    exitRoad.start();
    exitRoad.start();
    EXPECT_TRUE(eventually([&] { return ended; }));
    EXPECT_EQ(messenger.requests, QStringList{u"<LEAVECHANNEL cid=\"12\"/>"_s});
    EXPECT_TRUE(link.isShutDown());
}

TEST(Composing, TheItemThatTravels)
{
    QFont font;
    EXPECT_EQ(roomMessageItem(u"hello", font), u"<SMSG>hello\u0001"_s);
    font.setBold(true);
    font.setUnderline(true);
    EXPECT_EQ(roomMessageItem(u"hello", font), u"<SMSG><b><u>hello\u0001"_s);
    font.setItalic(true);
    const QString forged = u"a\u0001<EMOT>b\u0002\u0003\r\n\tc"_s;
    EXPECT_EQ(roomMessageItem(forged, font), u"<SMSG><b><i><u>a<EMOT>b\tc\u0001"_s);
}

} // namespace
