#pragma once

#include "core/options.h"
#include "room/admission.h"
#include "room/colChatters.h"
#include "room/composing.h"
#include "room/room_events.h"
#include "room/room_lifecycle.h"
#include "support/link_fixture.h"
#include "support/recording_view.h"

/// A room without its window: what it would show is kept.
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

    /// What is shown then.
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

    /// The board, and the private messages after it; both are empty then.
    QStringList shown() { return std::exchange(board.lines, {}) + std::exchange(board.whispers, {}); }

    /// What is shown when this unsolicited message has been handled.
    QStringList shownAfter(const QString &payload)
    {
        receive(payload);
        return shown();
    }

    [[nodiscard]] auto member(const QString &id) const { return chatters.withId(id); }

    const QString closed = u"4 The room you are in has been closed!"_s;
    Options options;
    colChatters chatters;
    RecordingView board;
    RoomLifecycle lifecycle{state, chatters, link, board, prompts};
    RoomEvents events{state, options, chatters, link, lifecycle, board};
    Admission admission{state, chatters, link, board};
    Composing composing{state, link, board};
};
