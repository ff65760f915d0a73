#include "windowless_room_fixture.h"

namespace {

TEST_F(Room, AskingWaitingAndBeingLetIn)
{
    askToJoin();
    EXPECT_EQ(shown(), (QStringList{u"3 Requesting to join room: Invited to join - Lounge"_s,
                                    u"3 Waiting for server response...."_s}));
    EXPECT_EQ(board.caption, u"Invited to join - Lounge"_s);
    EXPECT_TRUE(member(u"u1"_s)->Pending);
    admission.check();
    receive(uR"(<AJC cid="13" r="200"/><AJC cid="12" r="0" tid="u9"/>)"_s);
    EXPECT_FALSE(state.InRoom) << "the next look lets the user in";
    admission.check();
    EXPECT_TRUE(state.InRoom);
    EXPECT_EQ(board.lines, QStringList{u"4 You are allowed to join the chat room!"_s});
    EXPECT_EQ(messenger.requests.sliced(1),
              (QStringList{uR"(<NOTIFYJOINCHANNEL cid="12" id="u1" tid="u9" cnm="Lounge"/>)"_s,
                           uR"(<GETCHANNELCONTENTS cid="12" st="1"/>)"_s}));
    EXPECT_TRUE(member(u"u9"_s)->Owner && member(u"u9"_s)->Mood == 3);
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

TEST_F(Room, WhatComesBeforeTheWindowIsReady)
{
    EXPECT_EQ(shownAfter(uR"(<KCC cid="0" r="0"><E id="u1" nm="Ann" p="1"/></KCC><CLD cid="0"/>)"_s),
              QStringList());
    EXPECT_EQ(chatters.Count(), 0) << "there is no room";

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

TEST_F(Room, TheOwnersRequesters)
{
    EXPECT_EQ(shownAfter(uR"(<QJC id="u2" nm="Bob"/>)"_s), QStringList()) << "only an owner is asked";
    own();
    EXPECT_EQ(shown(), QStringList{u"3 Created room: Talk - Mine"_s});
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
    EXPECT_EQ(shown().last(2), (QStringList{u"4 User 'Dora' wants to join your chat room."_s,
                                            u"4 Accept or Reject 'Dora' from your pending list."_s}));
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

} // namespace
