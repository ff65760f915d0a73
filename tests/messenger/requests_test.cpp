#include "messenger/clean_text.h"
#include "world_fixture.h"

#include <algorithm>

using namespace messenger;

struct RequestsTest : WorldTest
{};

TEST_F(RequestsTest, AnswersWhatStartUpAndTheDirectoryAskFor)
{
    world.setSkin(uR"(C:\skins\Blue.skn)"_s);
    bringIn(robin, 5);
    const std::pair<QString, QString> cases[] = {
        {u"<GETSKIN/>"_s, uR"(<SKIN value="C:\\skins\\Blue.skn"/>)"_s},
        {u"<GETMYDETAILS/>"_s, uR"(<MYDETAILS id="u1" nick="Robin" s="11" m="7"/>)"_s},
        {u"<GETCATEGORIES/>"_s,
         uR"(<CTL><C g="1" nm="Lounges"><C g="3" nm="Town Square"/><C g="4" nm="Quiet Corner"/></C>)"
         uR"(<C g="2" nm="Interests"><C g="5" nm="Music"/><C g="6" nm="Games & Puzzles"/></C></CTL>)"_s},
        {uR"(<GETCHANNELS g="1" st="1"/>)"_s, uR"(<CHL><R g="1" cid="1" cnm="Lobby" mc="1"/></CHL>)"_s},
        {uR"(<GETCHANNELS g="1-4" st="2"/>)"_s,
         uR"(<CHL><R g="1-4" cid="3" cnm="Members Only" mc="1"/></CHL>)"_s},
        {uR"(<GETCHANNELS g="2" st="9"/>)"_s, u"<CHL/>"_s},
        {uR"(<GETCHANNELS g="1-9" st="1"/>)"_s, {}},
        {u"<GETCHANNELS/>"_s, {}},
        {uR"(<USERDETAILS id="u2"/>)"_s, {}},
        {u"<NOSUCHREQUEST/>"_s, {}},
    };
    for (const auto &[request, reply] : cases) {
        expect(robin, request, reply);
    }
    const QString list = uR"(<GETCHANNELS g="1-3" st="1"/>)"_s;
    const std::pair<QString, QStringList> listed[] = {{robin, {u"4"_s, u"5"_s}}, {sasha, {u"4"_s}}};
    for (const auto &[who, expected] : listed) { // a private room for its members only
        QStringList cids = answer(who, list).split(uR"( cid=")"_s).sliced(1);
        std::ranges::for_each(cids, [](QString &cid) { cid.truncate(cid.indexOf(u'"')); });
        EXPECT_EQ(cids, expected);
    }
}

TEST_F(RequestsTest, InvitingMakesAContact)
{
    world.rename(sasha, uR"(Say "hi" <3)"_s);
    forget();
    EXPECT_TRUE(answer(robin, u"<GETPYLOXUSERS/>"_s)
                    .startsWith(uR"(<PYLOXUSERS><U id="u2" nick="Say \"hi\" \<3"/>)"));
    expect(robin, uR"(<INVITEUSER id="h1" nick="Marlow"/>)"_s, {});
    EXPECT_TRUE(answer(robin, u"<GETPYLOXUSERS/>"_s).endsWith(uR"(<U id="h1" nick="Marlow"/></PYLOXUSERS>)"));
}

TEST_F(RequestsTest, AnOwnerLetsInRejectsAndDrops)
{
    forget();
    const QString ask = uR"(<REQUESTJOINCHANNEL cid="6" nm="not my name"/>)"_s;
    const QString enter = uR"(<NOTIFYJOINCHANNEL cid="6" id="u2" tid="u1" cnm=""/>)"_s;
    const QString asked = uR"(<AJC cid="6" r="0"/>)"_s;
    const QString done = uR"(<ADC r="0"/>)"_s;
    const QString change = uR"(<KCC cid="6" r="0"><E id="u2" nm="Sasha" p="%1" s="11" m="4"/></KCC>)"_s;
    expect(robin, uR"(<CREATECHANNEL g="1-3" nm="Den & co" ty="1"/>)"_s, uR"(<ACC r="0" cid="6"/>)"_s);
    expect(sasha, ask, asked, {{robin, {uR"(<QJC cid="6" id="u2" nm="Sasha"/>)"_s}}});
    expect(sasha, enter, uR"(<NJC r="2"/>)"_s);
    expect(robin, uR"(<ALLOWJOINCHANNEL cid="6" id="u2" tid="u1" r="0"/>)"_s, done,
           {{sasha, {uR"(<AJC cid="6" r="0" tid="u1"/>)"_s}}});
    expect(sasha, enter, uR"(<NJC r="0"/>)"_s, {{robin, {change.arg(1)}}});
    expect(noor, ask, asked, {{robin, {uR"(<QJC cid="6" id="u3" nm="Noor"/>)"_s}}});
    expect(robin, uR"(<ALLOWJOINCHANNEL cid="6" id="u3" tid="u1" r="200"/>)"_s, done,
           {{noor, {uR"(<AJC cid="6" r="200" tid="u1"/>)"_s}}});

    const QString drop = u"CMD cid=\"6\" id=\"u1\">DROPUSER userid\\=u2\x03 nick\\=%1\x03"_s;
    const QString dropped = u"<RC"_s + drop.arg(u"Sasha"_s) + u"</RCCMD>"_s;
    expect(robin, u"<C"_s + drop.arg(u"Nobody"_s) + u"</CCMD>"_s, u"<ACKSC/>"_s,
           {{sasha, {dropped}}, {robin, {dropped, change.arg(0)}}});
    const QString gone = uR"(<KLC r="0"/>)"_s;
    expect(sasha, uR"(<LEAVECHANNEL cid="6"/>)"_s, gone); // as a dropped client does
    expect(robin, uR"(<DESTROYCHANNEL cid="6"/>)"_s, gone);
}

TEST_F(RequestsTest, MessagesReachTheOthersAndNotTheirSender)
{
    bringIn(robin, 1);
    expect(robin, uR"(<GETCHANNELCONTENTS cid="1" st="1"/>)"_s,
           uR"(<KCC cid="1" r="0" t="2" id="h1"><E id="h1" nm="Marlow" p="1" s="11" m="7"/>)"
           uR"(<E id="u1" nm="Robin" p="1" s="11" m="7"/></KCC>)"_s);
    bringIn(sasha, 1);
    expect(robin, u"<CMSG cid=\"1\" id=\"forged\">\\<SMSG\\>a\\/b \x01</CMSG>"_s, u"<ACKSM/>"_s,
           {{sasha, {u"<RCMSG cid=\"1\" id=\"u1\" tid=\"0\">\\<SMSG\\>a\\/b \x01</RCMSG>"_s}}});
    // A private message needs no common room, and control characters that build no item are taken out.
    expect(robin, u"<CMSG cid=\"1\" id=\"u1\" tid=\"u3\">a\x1b\b\x02\x03\tb\r\n\x01</CMSG>"_s, u"<ACKSM/>"_s,
           {{noor, {u"<RCMSG cid=\"1\" id=\"u1\" tid=\"u3\">a\x02\x03\tb\r\n\x01</RCMSG>"_s}}});
}

TEST_F(RequestsTest, RefusesWhatOneHasNoRightTo)
{
    answer(robin, uR"(<CREATECHANNEL g="1" nm="Den" ty="2"/>)"_s);
    bringIn(sasha, 6);
    const std::tuple<QString, QString, QString> cases[] = {
        {noor, uR"(<CMSG cid="6" id="u1">x</CMSG>)"_s, {}},
        {sasha, uR"(<CMSG cid="77" id="u2">x</CMSG>)"_s, {}},
        {sasha, uR"(<CMSG cid="6" tid="u8">not connected</CMSG>)"_s, {}},
        {sasha, uR"(<CMSG cid="6">)"_s + QString(maximumTextLength + 1, u'x') + u"</CMSG>"_s, {}},
        {sasha, u"<CCMD cid=\"6\">DROPUSER userid=u1\x03 nick=Robin\x03</CCMD>"_s, {}},
        {robin, u"<CCMD cid=\"6\">DROPUSER userid=u1\x03 nick=Robin\x03</CCMD>"_s, {}},
        {robin, uR"(<CCMD cid="6">DROPUSER userid=u2</CCMD>)"_s, {}},
        {sasha, u"<CCMD cid=\"6\">DROPUSER userid=u2\x03 nick=Sasha\x03</CCMD>"_s, {}},
        {noor, uR"(<ALLOWJOINCHANNEL cid="6" id="u3" tid="u1" r="0"/>)"_s, uR"(<ADC r="2"/>)"_s},
        {robin, uR"(<ALLOWJOINCHANNEL cid="6" id="u3" tid="u1" r="0"/>)"_s, uR"(<ADC r="3"/>)"_s},
        {sasha, uR"(<DESTROYCHANNEL cid="6"/>)"_s, uR"(<KLC r="2"/>)"_s},
        {sasha, u"<DESTROYCHANNEL/>"_s, uR"(<KLC r="1"/>)"_s},
        {noor, uR"(<GETCHANNELCONTENTS cid="6" st="1"/>)"_s, uR"(<KCC cid="6" r="2"/>)"_s},
        {noor, uR"(<REQUESTJOINCHANNEL cid="4"/>)"_s, uR"(<AJC cid="4" r="109"/>)"_s},
        {noor, uR"(<REQUESTJOINCHANNEL cid="99999999999"/>)"_s, uR"(<AJC cid="2147483647" r="1"/>)"_s},
        {noor, uR"(<CREATECHANNEL g="7" nm="x" ty="1"/>)"_s, uR"(<ACC r="1"/>)"_s},
        {noor, uR"(<CREATECHANNEL g="1" nm=" " ty="1"/>)"_s, uR"(<ACC r="4"/>)"_s},
        {noor, u"<CREATECHANNEL g=\"1\" nm=\"a\nb\" ty=\"1\"/>"_s, uR"(<ACC r="4"/>)"_s},
    };
    for (const auto &[who, request, reply] : cases) {
        expect(who, request, reply);
    }
}

TEST_F(RequestsTest, WithoutTheServerOnlyWhatTheMessengerKnowsIsAnswered)
{
    bringIn(robin, 1);
    answer(sasha, uR"(<CREATECHANNEL g="1" nm="Den" ty="1"/>)"_s);
    forget();
    world.setOnline(false);
    EXPECT_EQ(told(robin), QStringList(u"<OFFLINE/>"_s));
    EXPECT_EQ(world.room(6), nullptr);
    for (const QStringView name : Requests::names()) {
        const QString reply = answer(robin, u'<' + name + uR"( cid="1" g="1"/>)");
        const bool isLocal = name == u"GETSKIN" || name == u"GETMYDETAILS";
        EXPECT_EQ(reply.isEmpty() || reply.contains(uR"(r="9")"), !isLocal) << reply.toStdString();
    }
    world.setOnline(true);
    EXPECT_EQ(told(robin), QStringList(u"<ONLINE/>"_s));
    EXPECT_EQ(answer(robin, uR"(<CMSG cid="1">x</CMSG>)"_s), QString()); // no longer in the room
}
