#include "messenger/clean_text.h"
#include "world_fixture.h"

using namespace messenger;

namespace {

class RequestsTest : public WorldTest
{};

} // namespace

TEST_F(RequestsTest, AnswersWhatStartUpAndTheDirectoryAskFor)
{
    world.setSkin(u"C:\\skins\\Blue.skn"_s);
    const struct
    {
        QString request;
        QString reply;
    } cases[] = {
        {u"<GETSKIN/>"_s, u"<SKIN value=\"C:\\\\skins\\\\Blue.skn\"/>"_s},
        {u"<GETMYDETAILS/>"_s, u"<MYDETAILS id=\"u1\" nick=\"Robin\" s=\"11\" m=\"7\"/>"_s},
        {u"<GETCATEGORIES/>"_s,
         u"<CTL><C g=\"1\" nm=\"Lounges\"><C g=\"3\" nm=\"Town Square\"/><C g=\"4\" nm=\"Quiet Corner\"/></C>"
         u"<C g=\"2\" nm=\"Interests\"><C g=\"5\" nm=\"Music\"/><C g=\"6\" nm=\"Games & Puzzles\"/></C></CTL>"_s},
        {u"<GETCHANNELS g=\"1\" st=\"1\"/>"_s, u"<CHL><R g=\"1\" cid=\"1\" cnm=\"Lobby\" mc=\"1\"/></CHL>"_s},
        {u"<GETCHANNELS g=\"1-4\" st=\"2\"/>"_s,
         u"<CHL><R g=\"1-4\" cid=\"3\" cnm=\"Members Only\" mc=\"1\"/></CHL>"_s},
        {u"<GETCHANNELS g=\"2\" st=\"9\"/>"_s, u"<CHL/>"_s},
        {u"<GETCHANNELS g=\"1-9\" st=\"1\"/>"_s, QString()},
        {u"<GETCHANNELS/>"_s, QString()},
        {u"<USERDETAILS id=\"u2\"/>"_s, QString()},
        {u"<NOSUCHREQUEST/>"_s, QString()},
    };
    for (const auto &[request, reply] : cases) {
        EXPECT_EQ(answer(robin, request), reply) << request.toStdString();
    }
}

TEST_F(RequestsTest, InvitingMakesAContact)
{
    world.rename(sasha, u"Say \"hi\" <3"_s);
    EXPECT_TRUE(answer(robin, u"<GETPYLOXUSERS/>"_s)
                    .startsWith(u"<PYLOXUSERS><U id=\"u2\" nick=\"Say \\\"hi\\\" \\<3\"/>"));
    EXPECT_EQ(answer(robin, u"<INVITEUSER id=\"h1\" nick=\"Marlow\"/>"_s), QString());
    EXPECT_TRUE(
        answer(robin, u"<GETPYLOXUSERS/>"_s).endsWith(u"<U id=\"h1\" nick=\"Marlow\"/></PYLOXUSERS>"));
}

TEST_F(RequestsTest, TheLobbyAdmitsAtOnce)
{
    EXPECT_EQ(answer(robin, u"<REQUESTJOINCHANNEL cid=\"1\" id=\"u1\" nm=\"Robin\"/>"_s),
              u"<AJC cid=\"1\" r=\"0\"/>");
    EXPECT_EQ(told(robin), QStringList(u"<AJC cid=\"1\" r=\"0\" tid=\"h1\"/>"_s));
    EXPECT_EQ(answer(robin, u"<NOTIFYJOINCHANNEL cid=\"1\" id=\"u1\" tid=\"h1\" cnm=\"Lobby\"/>"_s),
              u"<NJC r=\"0\"/>");
    EXPECT_EQ(
        answer(robin, u"<GETCHANNELCONTENTS cid=\"1\" st=\"1\"/>"_s),
        u"<KCC cid=\"1\" r=\"0\" t=\"2\" id=\"h1\"><E id=\"h1\" nm=\"Marlow\" p=\"1\" s=\"11\" m=\"7\"/>"
        u"<E id=\"u1\" nm=\"Robin\" p=\"1\" s=\"11\" m=\"7\"/></KCC>");
}

TEST_F(RequestsTest, AnOwnerLetsInRejectsAndDrops)
{
    EXPECT_EQ(answer(robin, u"<CREATECHANNEL g=\"1-3\" nm=\"Den & co\" ty=\"1\"/>"_s),
              u"<ACC r=\"0\" cid=\"6\"/>");
    EXPECT_EQ(answer(sasha, u"<REQUESTJOINCHANNEL cid=\"6\" id=\"u2\" nm=\"not my name\"/>"_s),
              u"<AJC cid=\"6\" r=\"0\"/>");
    EXPECT_EQ(told(robin), QStringList(u"<QJC cid=\"6\" id=\"u2\" nm=\"Sasha\"/>"_s));
    EXPECT_EQ(answer(sasha, u"<NOTIFYJOINCHANNEL cid=\"6\" id=\"u2\" tid=\"u1\" cnm=\"\"/>"_s),
              u"<NJC r=\"2\"/>");
    EXPECT_EQ(answer(robin, u"<ALLOWJOINCHANNEL cid=\"6\" id=\"u2\" tid=\"u1\" r=\"0\"/>"_s),
              u"<ADC r=\"0\"/>");
    EXPECT_EQ(told(sasha), QStringList(u"<AJC cid=\"6\" r=\"0\" tid=\"u1\"/>"_s));
    EXPECT_EQ(answer(sasha, u"<NOTIFYJOINCHANNEL cid=\"6\" id=\"u2\" tid=\"u1\" cnm=\"\"/>"_s),
              u"<NJC r=\"0\"/>");
    const QString arrival =
        u"<KCC cid=\"6\" r=\"0\"><E id=\"u2\" nm=\"Sasha\" p=\"1\" s=\"11\" m=\"4\"/></KCC>"_s;
    EXPECT_EQ(told(robin), QStringList(arrival));
    EXPECT_EQ(told(sasha), QStringList());

    answer(noor, u"<REQUESTJOINCHANNEL cid=\"6\" id=\"u3\" nm=\"Noor\"/>"_s);
    EXPECT_EQ(answer(robin, u"<ALLOWJOINCHANNEL cid=\"6\" id=\"u3\" tid=\"u1\" r=\"200\"/>"_s),
              u"<ADC r=\"0\"/>");
    EXPECT_EQ(told(noor), QStringList(u"<AJC cid=\"6\" r=\"200\" tid=\"u1\"/>"_s));

    forget();
    const QString dropped = u"DROPUSER userid\\=u2\x03 nick\\=Sasha\x03"_s;
    EXPECT_EQ(answer(robin, u"<CCMD cid=\"6\" id=\"u1\">DROPUSER userid\\=u2\x03 nick\\=Nobody\x03</CCMD>"_s),
              u"<ACKSC/>");
    const QString command = u"<RCCMD cid=\"6\" id=\"u1\">"_s + dropped + u"</RCCMD>"_s;
    EXPECT_EQ(told(sasha), QStringList(command));
    EXPECT_EQ(told(robin), QStringList({command, QString(arrival).replace(u"p=\"1\""_s, u"p=\"0\""_s)}));
    EXPECT_EQ(answer(sasha, u"<LEAVECHANNEL cid=\"6\"/>"_s), u"<KLC r=\"0\"/>"); // as a dropped client does
    EXPECT_EQ(answer(robin, u"<DESTROYCHANNEL cid=\"6\"/>"_s), u"<KLC r=\"0\"/>");
    EXPECT_EQ(told(robin), QStringList());
}

TEST_F(RequestsTest, MessagesReachTheOthersAndNotTheirSender)
{
    bringIn(robin, 1);
    bringIn(sasha, 1);
    EXPECT_EQ(answer(robin, u"<CMSG cid=\"1\" id=\"forged\">\\<SMSG\\>a\\/b \x01</CMSG>"_s), u"<ACKSM/>");
    EXPECT_EQ(told(sasha),
              QStringList(u"<RCMSG cid=\"1\" id=\"u1\" tid=\"0\">\\<SMSG\\>a\\/b \x01</RCMSG>"_s));
    EXPECT_EQ(told(robin), QStringList());
    EXPECT_EQ(told(noor), QStringList());

    // A private message needs no common room, and control characters that build no item are taken out.
    EXPECT_EQ(answer(robin, u"<CMSG cid=\"1\" id=\"u1\" tid=\"u3\">a\x1b\b\x02\x03\tb\r\n\x01</CMSG>"_s),
              u"<ACKSM/>");
    EXPECT_EQ(told(noor),
              QStringList(u"<RCMSG cid=\"1\" id=\"u1\" tid=\"u3\">a\x02\x03\tb\r\n\x01</RCMSG>"_s));
    EXPECT_EQ(told(sasha), QStringList());
}

TEST_F(RequestsTest, RefusesWhatOneHasNoRightTo)
{
    answer(robin, u"<CREATECHANNEL g=\"1\" nm=\"Den\" ty=\"2\"/>"_s);
    bringIn(sasha, 6);
    const QString longText(maximumTextLength + 1, u'x');
    const struct
    {
        QString who;
        QString request;
        QString reply;
    } cases[] = {
        {noor, u"<CMSG cid=\"6\" id=\"u1\">x</CMSG>"_s, QString()},
        {sasha, u"<CMSG cid=\"77\" id=\"u2\">x</CMSG>"_s, QString()},
        {sasha, u"<CMSG cid=\"6\" tid=\"u8\">not connected</CMSG>"_s, QString()},
        {sasha, u"<CMSG cid=\"6\">"_s + longText + u"</CMSG>"_s, QString()},
        {sasha, u"<CCMD cid=\"6\">DROPUSER userid=u1\x03 nick=Robin\x03</CCMD>"_s, QString()},
        {robin, u"<CCMD cid=\"6\">DROPUSER userid=u1\x03 nick=Robin\x03</CCMD>"_s, QString()},
        {robin, u"<CCMD cid=\"6\">DROPUSER userid=u2</CCMD>"_s, QString()},
        {sasha, u"<CCMD cid=\"6\">DROPUSER userid=u2\x03 nick=Sasha\x03</CCMD>"_s, QString()},
        {noor, u"<ALLOWJOINCHANNEL cid=\"6\" id=\"u3\" tid=\"u1\" r=\"0\"/>"_s, u"<ADC r=\"2\"/>"_s},
        {robin, u"<ALLOWJOINCHANNEL cid=\"6\" id=\"u3\" tid=\"u1\" r=\"0\"/>"_s, u"<ADC r=\"3\"/>"_s},
        {sasha, u"<DESTROYCHANNEL cid=\"6\"/>"_s, u"<KLC r=\"2\"/>"_s},
        {sasha, u"<DESTROYCHANNEL/>"_s, u"<KLC r=\"1\"/>"_s},
        {noor, u"<GETCHANNELCONTENTS cid=\"6\" st=\"1\"/>"_s, u"<KCC cid=\"6\" r=\"2\"/>"_s},
        {noor, u"<REQUESTJOINCHANNEL cid=\"4\"/>"_s, u"<AJC cid=\"4\" r=\"109\"/>"_s},
        {noor, u"<REQUESTJOINCHANNEL cid=\"99999999999\"/>"_s, u"<AJC cid=\"2147483647\" r=\"1\"/>"_s},
        {noor, u"<CREATECHANNEL g=\"7\" nm=\"x\" ty=\"1\"/>"_s, u"<ACC r=\"1\"/>"_s},
        {noor, u"<CREATECHANNEL g=\"1\" nm=\" \" ty=\"1\"/>"_s, u"<ACC r=\"4\"/>"_s},
        {noor, u"<CREATECHANNEL g=\"1\" nm=\"a\nb\" ty=\"1\"/>"_s, u"<ACC r=\"4\"/>"_s},
    };
    for (const auto &[who, request, reply] : cases) {
        EXPECT_EQ(answer(who, request), reply) << request.left(80).toStdString();
    }
    EXPECT_EQ(told(robin) + told(sasha) + told(noor), QStringList());
}

TEST_F(RequestsTest, WithoutTheServerOnlyWhatTheMessengerKnowsIsAnswered)
{
    bringIn(robin, 1);
    answer(sasha, u"<CREATECHANNEL g=\"1\" nm=\"Den\" ty=\"1\"/>"_s);
    forget();
    world.setOnline(false);
    EXPECT_EQ(told(robin), QStringList(u"<OFFLINE/>"_s));
    EXPECT_EQ(world.room(6), nullptr);
    for (const QStringView name : Requests::names()) {
        const QString reply = answer(robin, u'<' + name + u" cid=\"1\" g=\"1\"/>");
        const bool isLocal = name == u"GETSKIN" || name == u"GETMYDETAILS";
        EXPECT_EQ(reply.isEmpty() || reply.contains(u"r=\"9\""), !isLocal) << reply.toStdString();
    }
    world.setOnline(true);
    EXPECT_EQ(told(robin), QStringList(u"<ONLINE/>"_s));
    EXPECT_EQ(answer(robin, u"<CMSG cid=\"1\">x</CMSG>"_s), QString()); // no longer in the room
}
