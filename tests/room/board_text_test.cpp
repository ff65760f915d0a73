#include "room/board_text.h"
#include "room/composing.h"
#include "support/text.h"

#include <QFont>

TEST(BoardText, EachKindAndWhatStrangersPutIntoIt)
{
    const std::tuple<QString, MessageKind, QString, QString, QString> cases[] = {
        {u"hi"_s, MessageKind::Own, u"Ann"_s, {}, u"Ann: hi"_s},
        {u"a <b>b\u0001"_s, MessageKind::Member, u"Bob"_s, {}, u"Bob: a b"_s},
        {u"<B>loud</B>"_s, MessageKind::Member, u"Bob"_s, {}, u"Bob: <B>loud</B>"_s},
        {u"x\r\nSERVER: bye\rand\nmore"_s,
         MessageKind::Member,
         u"A\nB"_s,
         {},
         u"A B: x\n    SERVER: bye\n    and\n    more"_s},
        {u"%U% waves at %O%."_s, MessageKind::Emotion, u"%O%"_s, u"%U%"_s, u"%O% waves at %U%."_s},
        {u"100% %U"_s, MessageKind::Emotion, u"Ann"_s, {}, u"100% %U"_s},
        {u"closed"_s, MessageKind::Warning, {}, {}, u"SERVER: closed"_s},
        {u"online"_s, MessageKind::MessengerOnline, {}, {}, u"PYLOX: online"_s},
    };
    for (const auto &[text, kind, name, other, shown] : cases) {
        EXPECT_EQ(boardText(text, kind, name, other), shown);
    }
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
