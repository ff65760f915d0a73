#include "room/message_rtf.h"
#include "support/text.h"

#include <gtest/gtest.h>

namespace {

struct MessageRtfTest : testing::Test
{
    MessageRtfTest()
    {
        look.ownName = {1, 2};
        look.ownText = {3, 4};
        look.memberName = {5, 6};
        look.memberText = {7, 8};
        look.emotionName = {9, 10};
        look.emotionText = {11, 12};
        look.privateText = {13, 14};
        look.highlight = 15;
        look.normal = 16;
        look.warning = 17;
        look.error = 0x80000005; // the system's window background
    }

    /// The beginning of a document with these reds in its colour table.
    static QString start(std::initializer_list<int> reds)
    {
        QString rtf = u"{\\rtf1\\ansi{\\colortbl;\\red0\\green0\\blue0;"_s;
        for (const int red : reds) {
            rtf += u"\\red" + QString::number(red) + u"\\green0\\blue0;";
        }
        return rtf + u"}"_s;
    }

    SystemColours systemColours{QPalette(QColor(99, 0, 0), QColor(99, 0, 0))};
    MessageLook look;
    MessageRtf rtf{look, systemColours};
};

TEST_F(MessageRtfTest, Messages)
{
    EXPECT_EQ(rtf.GenerateRTF(u"<b>hi"_s, MessageKind::Member, u"Ann"_s, false),
              start({5, 6, 7, 8}) +
                  u"{\\pard\\fs20\\cf2\\b\\highlight3 Ann: \\b0\\highlight0\\b\\cf4\\highlight5 hi}}"_s);
    EXPECT_EQ(
        rtf.GenerateRTF(u"x<u>y<B>z"_s, MessageKind::Member, u"a{b}\\\r\nc"_s, true),
        start({5, 6, 7, 15}) +
            u"{\\pard\\fs20\\cf2\\b\\highlight3 a\\{b\\}\\\\ c: \\b0\\highlight0\\ul\\cf4\\highlight5 xy<B>z}}"_s);
    look.bold = look.italic = true;
    look.points = 8.5;
    EXPECT_EQ(rtf.GenerateRTF(u"hi\nSERVER: fake"_s, MessageKind::Own, {}, true),
              start({1, 2, 3, 4}) + u"{\\pard\\fs16\\b\\i\\cf4\\highlight5 hi\\line     SERVER: fake}}"_s);
    look.points = 9.5;
    EXPECT_EQ(rtf.GeneratePrivateMsg(u"<i>psst"_s), start({13, 14}) + u"{\\pard\\fs20\\i\\cf2 psst}}"_s);
}

TEST_F(MessageRtfTest, EmotionsAndNotices)
{
    const QString emotion = start({9, 10, 11, 12}) + u"{\\pard\\cf4\\highlight5\\fs20"_s;
    EXPECT_EQ(rtf.GenerateEmotion(u"%U% hugs %O% 100%"_s, u"%O%"_s, u"a{%U%"_s),
              emotion + u"\\b %O% \\b0 hugs \\b a\\{%U% \\b0 100%}}"_s);
    EXPECT_EQ(rtf.GenerateEmotion(u"2 waves"_s, {}, {}), emotion + u" 2 waves}}"_s);
    EXPECT_EQ(rtf.GenerateEmotion(u" waves"_s, {}, {}), emotion + u"  waves}}"_s);

    // The look of the others is seen on the board; the system's colours are those of its palette.
    EXPECT_EQ(rtf.GenerateServerMsg(u"text"_s, MessageKind::Error),
              QString(start({}).chopped(1) + RTFColour(systemColours.at(5), systemColours) +
                      u"}{\\pard\\cf2\\fs20\\b SERVER: \\b0 text}}"));
}

} // namespace
