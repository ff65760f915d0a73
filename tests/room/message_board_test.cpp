#include "core/options.h"
#include "emotions/emoticon_file.h"
#include "platform/image_list.h"
#include "platform/rich_edit.h"
#include "richtext/dump.h"
#include "room/message_board.h"
#include "support/eventually.h"
#include "support/files.h"
#include "support/text.h"

#include <QScrollBar>
#include <QTemporaryDir>
#include <QWheelEvent>

using enum MessageKind;

struct MessageBoardTest : testing::Test
{
    QString dumpOf(const QString &text, MessageKind kind = Own, bool highlight = false)
    {
        messages.clear();
        messages.AddMessage(text, kind, u"A"_s, u"B"_s, highlight);
        return dump(board.document()).remove(u"18 Mono "_s);
    }

    Options options{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14};
    ChatColours skin{{20, 21}, {22, 23}, 24, 25, 26, {27, 28}, {29, 30}, {31, 32}};
    EmoticonFile emoticons{u"/nowhere/"_s};
    ImageList imgList;
    RichEdit board;
    MessageBoard messages{board, options, skin, emoticons, imgList};
};

TEST_F(MessageBoardTest, EachKindHasItsLook)
{
    messages.setInputBox(QFont(u"Mono"_s, 9, QFont::Normal, true), {40, 41});
    // In the colours of the options, and of the skin.
    const std::tuple<MessageKind, bool, QString, QString, QString> cases[] = {
        {Own, true, u"hi\u0001"_s, u"[b c1 h2]A: [i c3 h4]hi"_s, u"[b c1d h1e]A: [i c28 h29]hi"_s},
        {Member, false, u"<u>hi"_s, u"[b c5 h6]A: [u c7 h8]hi"_s, u"[b c1d h1e]A: [u c16 h17]hi"_s},
        {Member, true, u"hi"_s, u"[b c5 h6]A: [c7 he]hi"_s, u"[b c1d h1e]A: [c16 he]hi"_s},
        {Emotion, true, u"is %O%"_s, u"[c9 ha]is [b c9 ha]B "_s, u"[c1b hffffe4]is [b c1b hffffe4]B "_s},
        {Normal, false, u"x"_s, u"[b cb]SERVER: [cb]x"_s, u"[b c18]SERVER: [c18]x"_s},
        {Error, false, u"x\u0001"_s, u"[b cd]SERVER: [cd]x"_s, u"[b c1a]SERVER: [c1a]x"_s},
        {Warning, false, u"x"_s, u"[b cc]SERVER: [cc]x"_s, u"[b c19]SERVER: [c19]x"_s},
        {FriendOnline, false, u"x"_s, u"[b cb]PYLOX: [cb]x"_s, u"[b c18]PYLOX: [c18]x"_s},
        {MessengerOffline, false, u"x"_s, u"[b cc]PYLOX: [cc]x"_s, u"[b c19]PYLOX: [c19]x"_s},
        {MessengerOnline, false, u"x"_s, u"[b cb]PYLOX: [cb]x"_s, u"[b c18]PYLOX: [c18]x"_s},
    };
    for (const auto &[kind, highlight, text, own, ofSkin] : cases) {
        options.IGNORECOL = false;
        EXPECT_EQ(dumpOf(text, kind, highlight), QString(u"<0 80 0 0>" + own));
        options.IGNORECOL = true;
        EXPECT_EQ(dumpOf(text, kind, highlight), QString(u"<0 80 0 0>" + ofSkin));
    }
}

TEST_F(MessageBoardTest, CodesBetweenSpacesBecomePictures)
{
    QImage image(1, 1, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    imgList.add(u"eHappy"_s, image);
    imgList.setMaskColour(qRgb(255, 0, 255));
    const std::tuple<QString, QString, ColourValue> cases[] = {
        {u":)"_s, u"A: *"_s, 0x112233},
        {u":) hi  :) "_s, u"A: * hi  * "_s, 0x445566},
        {u"hi:) :), (:)) :):) :)"_s, u"A: hi:) :), (:)) :):) *"_s, 0x445566},
        {u":) :( :) x"_s, u"A: :) :( * x"_s, 0x112233}, // there is no picture for the second
    };
    for (const auto &[text, shown, ground] : cases) {
        messages.setInputBox(board.font(), {0, ground});
        (void)dumpOf(text);
        EXPECT_EQ(board.document().paragraph(0).text().toString().replace(u'\uFFFC', u'*'), shown);
        EXPECT_EQ(board.document().picture(1).image.pixelColor(0, 0), toColor(ground));
    }
    options.EMOTICONS = false;
    EXPECT_TRUE(dumpOf(u":)"_s).endsWith(u":)"));
}

TEST_F(MessageBoardTest, AnEmptyCodeOfTheUsersFileMatchesNothing)
{
    const QTemporaryDir folder;
    writeFile(folder.filePath(u"Emoticon.dat"_s), "\r\nNothing\r\n8-)\r\nHappy\r\n");
    EmoticonFile own{QString(folder.path() + u'/')};
    MessageBoard ownMessages{board, options, skin, own, imgList};
    imgList.add(u"eHappy"_s, QImage(1, 1, QImage::Format_RGB32));
    ownMessages.AddMessage(u"8-) and  8-) "_s, Own, u"A"_s);
    EXPECT_EQ(board.document().paragraph(0).text(), u"A: \uFFFC and  \uFFFC "_s);
}

TEST_F(MessageBoardTest, AViewThatTheUserHasMovedBackStays)
{
    board.show();
    QScrollBar *bar = board.verticalScrollBar();
    const auto valueAfter = [&](int count) {
        for (int message = 0; message < count; ++message) {
            messages.AddMessage(u"hello"_s, Member, u"A"_s);
        }
        (void)eventually([] { return false; }, 200);
        return bar->value();
    };
    const int end = valueAfter(50);
    board.select(3, 60);
    EXPECT_TRUE(0 < end && end < valueAfter(1) && board.isAtEnd());
    QWheelEvent up({9, 9}, {9, 9}, {}, {0, 360}, {}, {}, {}, false);
    QCoreApplication::sendEvent(board.viewport(), &up);
    const int back = valueAfter(0);
    EXPECT_TRUE(back < end && valueAfter(1) == back);
    bar->setValue(bar->maximum());
    EXPECT_TRUE(back < valueAfter(1) && board.isAtEnd() && board.selectionEnd() == 60);
}
