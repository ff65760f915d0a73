#include "link/dispatcher.h"
#include "link/request_queue.h"
#include "support/recording_room.h"
#include "support/text.h"

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
    const std::tuple<QString, enum RetCode, QString> cases[] = {
        // no text: the request's own stays
        {u"<SKIN value=\"Blue.skn\"/>"_s, RetCode::Replied, u"Blue.skn"_s},
        {u"<NJC r=\"0\"/>"_s, RetCode::Replied, u"0"_s},
        {u"<KLC r=\"7\"/>"_s, RetCode::Replied, u"7"_s},
        {u"<ADC r=\"0\"/>"_s, RetCode::Replied, u"0"_s},
        {u"<ACKSM/>"_s, RetCode::Replied, {}},
        {u"<ACKSC/>"_s, RetCode::Replied, {}},
        {u"<SKIN/>"_s, RetCode::NoReply, {}},
        {u"<CLD cid=\"1\"/>"_s, RetCode::NoReply, {}},
        {u"<UNHEARDOF/>"_s, RetCode::NoReply, {}},
        {u""_s, RetCode::NoReply, {}},
    };
    const auto receiveReply = [this](const QString &payload) {
        auto record = queue.add(u"<X/>"_s, true, 0);
        receive(payload, record->MsgKey);
        EXPECT_TRUE(record->Processed) << payload.toStdString();
        return record;
    };
    for (const auto &[payload, code, text] : cases) {
        const auto record = receiveReply(payload);
        EXPECT_EQ(record->RetCode, code) << payload.toStdString();
        EXPECT_EQ(record->RetString, text.isEmpty() ? record->MessageToSend : text);
        EXPECT_EQ(record->RetXML, nullptr) << payload.toStdString();
    }
    for (const QString &name : u"MYDETAILS CTL CHL ACC PYLOXUSERS KCC AJC"_s.split(u' ')) {
        const auto record = receiveReply(u'<' + name + u"><C nm=\"a\\\"b\"/></A>");
        EXPECT_EQ(record->RetCode, RetCode::Replied) << name.toStdString();
        EXPECT_EQ(record->RetString, record->MessageToSend);
        ASSERT_NE(record->RetXML, nullptr) << name.toStdString();
        EXPECT_EQ(record->RetXML->XMLMessage.Item(1)->value(u"nm"), u"a\"b") << "its message is kept alive";
    }
    const auto late = queue.add({}, true, 0);
    late->Terminate = true;
    receive(u"<KLC r=\"0\"/>"_s, late->MsgKey);
    EXPECT_TRUE(!late->Processed && late->RetCode == RetCode::NoReply) << "nobody waits for it any more";
    EXPECT_TRUE(room.events.isEmpty());
}

TEST_F(Dispatch, EventsReachTheRoom)
{
    const auto record = queue.add({}, true, 0);
    const QString all = u"KCC AJC QJC CLD RCMSG RCCMD STATUSMOOD USERONLINE NAMECHANGE OFFLINE ONLINE"_s;
    receive(u"<SKINCHANGE/><KLC/><"_s + QString(all).replace(u" "_s, u"/><"_s) + u"/>", u"MSG"_s);
    EXPECT_EQ(room.events, all.split(u' ')) << "what is no event does not stop the next";
    EXPECT_FALSE(record->Processed) << "an unsolicited message answers nothing";
    room.events.clear();
    receive(u"<RCMSG/><SKINCHANGE value=\"Red.skn\"/><OUTER><QJC/></OUTER><MSG><ONLINE/></MSG>"_s, u"C99"_s);
    EXPECT_EQ(room.events, (QStringList{u"RCMSG"_s, u"QJC"_s, u"ONLINE"_s}))
        << "children first, and inside MSG too";
    EXPECT_EQ(skins, QStringList{u"Red.skn"_s});
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
