#include "room/composing.h"
#include "support/text.h"

#include <QFont>

#include <gtest/gtest.h>

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
