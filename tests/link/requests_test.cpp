#include "link/requests.h"
#include "support/text.h"

TEST(Requests, TheirTexts)
{
    const std::pair<QString, QString> cases[] = {
        {Requests::createChannel(u"7", u"a/b", false), uR"(<CREATECHANNEL g="7" nm="a/b" ty="1"/>)"_s},
        {Requests::getChannelContents(12, 1), uR"(<GETCHANNELCONTENTS cid="12" st="1"/>)"_s},
        {Requests::requestJoinChannel(12, u"u1", u"A\"n/n"),
         uR"(<REQUESTJOINCHANNEL cid="12" id="u1" nm="A\"n\/n"/>)"_s},
        {Requests::allowJoinChannel(12, u"u2", u"u1", false),
         uR"(<ALLOWJOINCHANNEL cid="12" id="u2" tid="u1" r="0"/>)"_s},
        {Requests::allowJoinChannel(12, u"u2", u"u1", true),
         uR"(<ALLOWJOINCHANNEL cid="12" id="u2" tid="u1" r="200"/>)"_s},
        {Requests::dropUser(12, u"u1", u"u2", u"B\u0003o\nb"),
         u"<CCMD cid=\"12\" id=\"u1\">DROPUSER userid\\=u2\u0003 nick\\=Bob\u0003</CCMD>"_s},
        {Requests::inviteUser(u"u2", u"Bob"), uR"(<INVITEUSER id="u2" nick="Bob"/>)"_s},
    };
    for (const auto &[made, expected] : cases) {
        EXPECT_EQ(made, expected);
    }
}
