#include "emotions/colEmotions.h"
#include "windowless_room_fixture.h"

#include <QFont>

namespace {

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
