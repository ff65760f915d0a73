#include "platform/on_screen.h"
#include "privmsg/privmsg_rtf.h"
#include "richtext/dump.h"
#include "richtext/rtf_reader.h"
#include "support/text.h"

#include <QDateTime>
#include <QFont>
#include <QLocale>

namespace {

TEST(PrivateRtf, OwnWordsHaveTheFontsAndTheTagsStyle)
{
    const SystemColours systemColours(QPalette(QColor(99, 0, 0), QColor(99, 0, 0)));
    const QString base = RTFColour(systemColours.at(5), systemColours);
    const std::tuple<QString, double, QString, QString> cases[] = {
        // text, points, style of the font, what follows the paragraph's start
        {u"hi"_s, 10, u""_s, u"\\fs20\\cf2 hi"_s},
        {u"h<u>i{\\}"_s, 8.5, u"b"_s, u"\\fs16\\b\\ul\\cf2 hi\\{\\\\\\}"_s},
        {u"<i><B>hi<b>"_s, 9.5, u"iu"_s, u"\\fs20\\b\\i\\ul\\cf2 <B>hi"_s},
    };
    for (const auto &[text, points, style, shown] : cases) {
        QFont font(u"Mono"_s);
        font.setPointSizeF(points);
        font.setBold(style.contains(u'b'));
        font.setItalic(style.contains(u'i'));
        font.setUnderline(style.contains(u'u'));
        EXPECT_EQ(GenerateMyPrivateMsg(text, font, {0x030201, 0x80000005}, systemColours),
                  QString(u"{\\rtf1\\ansi{\\colortbl;\\red0\\green0\\blue0;\\red1\\green2\\blue3;" + base +
                          u"}{\\pard" + shown + u"}}"));
    }
}

/// Whatever a stranger sends, it is one paragraph in the message's own look, and stands in from the headers.
TEST(PrivateRtf, ABodyCannotPoseAsAnythingElse)
{
    const QString png =
        u"89504e470d0a1a0a0000000d49484452000000010000000108000000003a7e9b550000000a49444154789c"
        "636000000002000148afa4710000000049454e44ae426082"_s; // one pixel
    RichDocument read;
    EXPECT_TRUE(readRtf(QString(u"{\\rtf1 {\\pict\\pngblip " + png + u"}}"), read).isOk() &&
                read.length() == 1);
    const QString bomb = u"{\\rtf1 "_s + u"{"_s.repeated(100'000) + u"x"_s;
    const std::pair<QString, QString> cases[] = {
        {u"{\\rtf1{\\colortbl;\\red1\\green2\\blue3;}{\\pard\\fs99\\b\\cf1\\highlight1\\strike hi}}"_s,
         u"[b]hi"_s},
        {u"{\\rtf1 a\\par{\\i Ann}\\tab now\\par\\line\\line     b\\par\\par}"_s,
         u"[]a|    [i]Ann[]\tnow|    |    |    b"_s},
        {u"{\\rtf1 a\\li-900\\fi-900\\qr\\u8233 ?\\u10 ?b}"_s, u"[]a|    b"_s},
        {u"no {\\rtf1 \\b RTF}\r\nAnn\u2028x\x1by\ufffc\u0085"_s,
         u"[]no {\\rtf1 \\b RTF}|    Ann|    xy|    "_s},
        {QString(u"{\\rtf1 a{\\pict\\pngblip " + png + u"}b"), u"[]ab"_s},
        {bomb, u""_s},
        {u""_s, u""_s},
    };
    for (const auto &[message, shown] : cases) {
        const QString body = dump(privateBody(message, {u"Mono"_s, 20, 7}));
        EXPECT_EQ(QString(body)
                      .replace(u'\u2028', u'|')
                      .replace(u" c7]"_s, u"]"_s)
                      .replace(u"[20 Mono"_s, u"["_s)
                      .replace(u"[ "_s, u"["_s),
                  QString(u"<0 0 240 0>" + shown))
            << message.left(80).toStdString();
    }
}

TEST(PrivateRtf, AMessageHasAHeaderAndASpaceBelow)
{
    QLocale::setDefault(QLocale(QLocale::German));
    const PrivateLook look{u"Mono"_s, 20, 7};
    const PrivateHeader header{u"A{b}"_s, privateTime(QDateTime({2026, 3, 5}, {0, 2, 3})), 8, 9};
    EXPECT_EQ(
        dump(privateMessage(header, privateBody(u"hi"_s, look), look)),
        u"[20 Mono b c8]A{b}\t[20 Mono b c9]05 Mar, 2026 12:02:03 AM\n<0 0 240 0>[20 Mono c7]hi\n[20 Mono] "_s);
    EXPECT_EQ(privateTime(QDateTime({2026, 12, 25}, {13, 5, 9})), u"25 Dec, 2026 01:05:09 PM"_s);
    QLocale::setDefault(QLocale::c());
}

TEST(PrivateRtf, NamesAreOneLineThatCanBeSeen)
{
    const std::pair<QString, QString> cases[] = {
        {u"Bob"_s, u"Bob"_s},
        {u""_s, u"u2"_s},
        {u"\u202e\u200b"_s, u"u2"_s},
        {u" \t\u2029"_s, u"u2"_s},
        {u"\u202eB\r\no\tb\u2028\u0085!"_s, u"B o b  !"_s},
        {u"x"_s.repeated(100), u"x"_s.repeated(100)},
        {u"x"_s.repeated(1'000'000), u"x"_s.repeated(99) + u"…"_s},
    };
    for (const auto &[name, shown] : cases) {
        EXPECT_EQ(shownPeerName(name, u"u2"_s), shown);
    }
}

TEST(PrivatePlacement, IsBroughtOntoAScreen)
{
    const QList<QRect> screens = {{0, 0, 1000, 800}, {1000, 100, 600, 400}};
    const std::pair<QRect, QRect> cases[] = {
        {{10, 20, 300, 250}, {10, 20, 300, 250}},
        {{-50, 700, 300, 250}, {0, 550, 300, 250}},
        {{0, 0, 0, 0}, {0, 0, 200, 150}},
        {{5000, -5000, 300, 250}, {700, 0, 300, 250}},              // that screen has gone
        {{1100, 150, 5000, 300}, {1000, 150, 600, 300}},            // on the second screen
        {{-143165576, 0, 143165576, 143165576}, {0, 0, 1000, 800}}, // the largest numbers of the file
    };
    for (const auto &[wanted, place] : cases) {
        EXPECT_EQ(broughtOnScreen(wanted, {200, 150}, screens), place) << wanted.x();
    }
    EXPECT_EQ(broughtOnScreen({1, 2, 3, 4}, {200, 150}, {}), QRect(1, 2, 3, 4));
}

} // namespace
