#include "link/dispatcher.h"
#include "link/request_queue.h"
#include "support/recording_room.h"
#include "support/text.h"

#include <gtest/gtest.h>

namespace {

struct Dispatch : testing::Test
{
    Dispatch() { dispatcher.setRoomEvents(&room); }

    void receive(const QString &payload, const QString &key)
    {
        dispatcher.HandleIncoming(u"<MSG><V mk=\"" + key + u"\"/>" + payload + u"</MSG>");
    }

    RequestQueue queue;
    RecordingRoom room;
    QStringList skins;
    Dispatcher dispatcher{queue, [this](const QString &file) { skins.append(file); }};
};

TEST_F(Dispatch, RepliesAreStoredInTheirRecords)
{
    const struct
    {
        QString reply;
        enum RetCode code;
        QString text; ///< empty: the request's own text stays
        bool element;
    } cases[] = {
        {u"<SKIN value=\"Blue.skn\"/>"_s, RetCode::Replied, u"Blue.skn"_s, false},
        {u"<SKIN/>"_s, RetCode::NoReply, {}, false},
        {u"<MYDETAILS id=\"u1\"/>"_s, RetCode::Replied, {}, true},
        {u"<CTL><C g=\"1\"/></CTL>"_s, RetCode::Replied, {}, true},
        {u"<CHL/>"_s, RetCode::Replied, {}, true},
        {u"<ACC r=\"0\"/>"_s, RetCode::Replied, {}, true},
        {u"<PYLOXUSERS/>"_s, RetCode::Replied, {}, true},
        {u"<KCC r=\"0\"/>"_s, RetCode::Replied, {}, true},
        {u"<AJC r=\"0\"/>"_s, RetCode::Replied, {}, true},
        {u"<NJC r=\"0\"/>"_s, RetCode::Replied, u"0"_s, false},
        {u"<KLC r=\"7\"/>"_s, RetCode::Replied, u"7"_s, false},
        {u"<ADC r=\"0\"/>"_s, RetCode::Replied, u"0"_s, false},
        {u"<ACKSM/>"_s, RetCode::Replied, {}, false},
        {u"<ACKSC/>"_s, RetCode::Replied, {}, false},
        {u"<CLD cid=\"1\"/>"_s, RetCode::NoReply, {}, false},
        {u"<UNHEARDOF/>"_s, RetCode::NoReply, {}, false},
        {u""_s, RetCode::NoReply, {}, false},
    };
    for (const auto &c : cases) {
        const auto record = queue.add(u"<X/>"_s, true, 0);
        receive(c.reply, record->MsgKey);
        EXPECT_TRUE(record->Processed) << c.reply.toStdString();
        EXPECT_EQ(record->RetCode, c.code) << c.reply.toStdString();
        EXPECT_EQ(record->RetString, c.text.isEmpty() ? record->MessageToSend : c.text);
        EXPECT_EQ(record->RetXML != nullptr, c.element) << c.reply.toStdString();
    }
    EXPECT_TRUE(room.events.isEmpty());
}

TEST_F(Dispatch, AStoredElementKeepsItsMessageAlive)
{
    const auto record = queue.add({}, true, 0);
    receive(u"<CTL><C nm=\"a\\\"b\"/></CTL>"_s, record->MsgKey);
    EXPECT_EQ(record->RetXML->XMLMessage.Item(1)->value(u"nm"), u"a\"b");
}

TEST_F(Dispatch, EventsReachTheRoom)
{
    receive(
        u"<KCC/><AJC/><QJC/><CLD/><RCMSG/><RCCMD/><STATUSMOOD/><USERONLINE/><NAMECHANGE/><OFFLINE/><ONLINE/>"_s,
        u"MSG"_s);
    EXPECT_EQ(room.events,
              (QStringList{u"KCC"_s, u"AJC"_s, u"QJC"_s, u"CLD"_s, u"RCMSG"_s, u"RCCMD"_s, u"STATUSMOOD"_s,
                           u"USERONLINE"_s, u"NAMECHANGE"_s, u"OFFLINE"_s, u"ONLINE"_s}));
    room.events.clear();
    receive(u"<RCMSG/><SKINCHANGE value=\"Red.skn\"/><OUTER><QJC/></OUTER><MSG><ONLINE/></MSG>"_s, u"C99"_s);
    EXPECT_EQ(room.events, (QStringList{u"RCMSG"_s, u"QJC"_s, u"ONLINE"_s}))
        << "children first, and inside MSG too";
    EXPECT_EQ(skins, QStringList{u"Red.skn"_s});
}

TEST_F(Dispatch, ALateReplyIsIgnored)
{
    const auto record = queue.add({}, true, 0);
    record->Terminate = true;
    receive(u"<KLC r=\"0\"/>"_s, record->MsgKey);
    EXPECT_FALSE(record->Processed);
    EXPECT_EQ(record->RetCode, RetCode::NoReply);
}

TEST_F(Dispatch, OneBadElementDoesNotStopTheNext)
{
    const auto record = queue.add({}, true, 0);
    receive(u"<SKINCHANGE/><KLC/><CLD cid=\"1\"/>"_s, u"MSG"_s);
    EXPECT_EQ(room.events, QStringList{u"CLD"_s});
    EXPECT_FALSE(record->Processed) << "an unsolicited message answers nothing";
}

TEST_F(Dispatch, WhatIsNoMessageIsDropped)
{
    const QString deep = u"<MSG><V mk=\"MSG\"/>"_s + u"<A>"_s.repeated(100) + u"<RCMSG/>"_s;
    for (const QString &text : {u""_s, u"garbage"_s, u"<MSG/>"_s, u"<MSG><RCMSG/></MSG>"_s,
                                u"<MSG><V/><RCMSG/></MSG>"_s, u"<MSG><RCMSG/><V mk=\"MSG\"/></MSG>"_s,
                                u"<MSG><V mk=\"MSG\"/><RCMSG a=\"1\" a=\"2\"/></MSG>"_s, deep}) {
        dispatcher.HandleIncoming(text);
    }
    EXPECT_TRUE(room.events.isEmpty());
    dispatcher.setRoomEvents(nullptr);
    receive(u"<RCMSG/><ONLINE/>"_s, u"MSG"_s);
}

} // namespace
