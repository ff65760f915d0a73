#include "room/member_menu.h"
#include "windowless_room_fixture.h"

namespace {

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
    EXPECT_TRUE(!member(u"u2"_s)->Pending && member(u"u3"_s) == nullptr);
    for (const qsizetype position : {3, 2}) { // nobody is there any more, and somebody else is
        cid.position = position;
        actions.perform(MemberAction::Ignore, cid);
        EXPECT_EQ(state.lists.IgnoreList, emptyUserList()) << position;
    }

    bob = memberMenu(chatters, 2, state);
    messenger.requests.clear();
    for (const MemberAction action : {MemberAction::Ignore, MemberAction::AutoAccept, MemberAction::Highlight,
                                      MemberAction::PrivateMessage, MemberAction::UserDetails,
                                      MemberAction::AddToMessenger, MemberAction::Drop}) {
        actions.perform(action, bob);
    }
    EXPECT_TRUE(IsInList(state.lists.IgnoreList, u"u2"_s) && IsInList(state.lists.AcceptList, u"u2"_s) &&
                member(u"u2"_s)->Highlight);
    EXPECT_EQ(board.whispers, QStringList{u"u2 Bob "_s});
    EXPECT_EQ(messenger.requests.size(), 3);
    EXPECT_TRUE(messenger.requests.last().contains(u"DROPUSER userid"_s));
}

} // namespace
