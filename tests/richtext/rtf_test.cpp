#include "richtext/dump.h"
#include "richtext/rtf_reader.h"
#include "richtext/rtf_writer.h"
#include "support/pictures.h"
#include "support/text.h"

#include <gtest/gtest.h>
#include <random>

namespace {

using Problem = RtfStatus::Problem;

QString readAndDump(const QString &rtf, Problem expected = Problem::None)
{
    RichDocument document;
    EXPECT_EQ(readRtf(rtf, document).problem, expected) << rtf.toStdString();
    return dump(document);
}

TEST(RtfReader, WhatProgramsWrite)
{
    const std::pair<QString, QString> cases[] = {
        {u"{\\rtf1\\ansi{\\pard\\fs17 1 \\b a\\{b\\}\\\\ \\b0 na\u00EFve \u4F60\U0001F600}}"_s,
         u"[17]1 [17 b]a{b}\\ [17]na\u00EFve \u4F60\U0001F600"_s},
        {u"{\\rtf1\\deff1{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}{\\f1\\fnil{\\*\\falt Other}Serif;}}a\\f0 b}"_s,
         u"[24 Serif]a[24 Arial]b"_s},
        {u"{\\rtf1{\\stylesheet{\\s0 Normal;}}{\\info{\\title T}}{\\*\\unknown x{y}}{\\header h}a{\\i b}c}"_s,
         u"[24]a[24 i]b[24]c"_s},
        {u"{\\rtf1 a\\par\\pard\\qc\\sb80\\li720\\fi-360 b\\par \\pard c}"_s,
         u"[24]a\n<1 80 720 -360>[24]b\n[24]c"_s},
        {u"{\\rtf1 {\\pard\\qr a}}"_s, u"<2 0 0 0>[24]a"_s},
        {u"{\\rtf1 a\\line b\\tab c\\~d\\-\\_\\endash\\lquote\\'93x\\'94\r\nsame line\\\nnext}"_s,
         u"[24]a\u2028b\tc\u00A0d\u00AD\u2011\u2013\u2018\u201Cx\u201Dsame line\n[24]next"_s},
        {u"{\\rtf1\\ansicpg1251 \\'cf\\'f0{\\fonttbl{\\f3\\fcharset128 X;}}\\f3\\'82\\'a0\\f0 e}"_s,
         u"[24]\u041F\u0440[24 X]\u3042[24]e"_s},
        {u"{\\rtf1\\uc1\\u20320?\\u-10179?\\u-8704?{\\uc2\\u8364ab}\\u8364\\'80c{\\uc0\\u169}x}"_s,
         u"[24]\u4F60\U0001F600\u20AC\u20ACc\u00A9x"_s},
        {u"{\\rtf1\\b\\i\\ul\\strike x\\plain y{\\v hidden\\par}\\ul z\\ulnone\\b0 .}"_s,
         u"[24 b i u s]x[24]y[24 u]z[24]."_s},
        {u"{\\rtf1{\\field{\\*\\fldinst HYPERLINK \"http://a\"}{\\fldrslt link}}\\bin3 {}\\a}"_s,
         u"[24]linka"_s},
        {u"{\\rtf1 a{\\pict\\wmetafile8 0123}b{\\pict\\pngblip nonsense}c}"_s, u"[24]abc"_s},
    };
    for (const auto &[rtf, expected] : cases) {
        EXPECT_EQ(readAndDump(rtf), expected) << rtf.toStdString();
    }
    RichDocument document;
    EXPECT_TRUE(readRtf(QByteArrayView("{\\rtf1\\ansicpg1253 a\xE1 b{\\u945\xE1}}"), document).isOk());
    EXPECT_EQ(dump(document), u"[24]a\u03B1 b\u03B1"_s) << "the bytes of a file are in its code page";
    document.clear();
    EXPECT_TRUE(readRtf(QByteArrayView("{\\rtf1 \\u800\x93\\par \\'1a\\'e4\\'09}"), document).isOk());
    EXPECT_EQ(dump(document), u"[24]\u0320\n[24]\u00E4\t"_s) << "a byte may stand for those who know no \\u";
}

TEST(RtfReader, WhatNobodyShouldWrite)
{
    const std::tuple<QString, Problem, QString> cases[] = {
        {u""_s, Problem::NotRtf, u""_s},
        {u"plain text"_s, Problem::NotRtf, u""_s},
        {u"{\\rtf1 a{\\b b"_s, Problem::Unbalanced, u"[24]a[24 b]b"_s},
        {u"{\\rtf1 a}b}{"_s, Problem::None, u"[24]a"_s},
        {u"{\\rtf1\\fs99999999999999\\cf-1\\cf99\\f77\\li-5\\sb9999999 a\\fs-3 b}"_s, Problem::None,
         u"<0 31680 0 0>[3000]a[24]b"_s},
        {u"{\\rtf1\\u99999999999?\\u1?\\u-70000?a\u0001\u0000b\\'zz\\'4}"_s, Problem::None, u"[24]abzz4"_s},
        {u"{\\rtf1 "_s + u"{"_s.repeated(100) + u"deep"_s + u"}"_s.repeated(100) + u"a}"_s, Problem::TooDeep,
         u"[24]a"_s},
        {u"{\\rtf1\\bin999999999 a}"_s, Problem::Unbalanced, u""_s},
        {u"{\\rtf1 fake \uFFFC and \u2029}"_s, Problem::None, u"[24]fake \uFFFD and \u2028"_s},
    };
    for (const auto &[rtf, problem, expected] : cases) {
        EXPECT_EQ(readAndDump(rtf, problem), expected) << rtf.toStdString();
    }
}

TEST(RtfReader, PicturesAreBoundedBeforeTheyAreDecoded)
{
    const auto rtf = [](const QByteArray &png) -> QString {
        return u"{\\rtf1 a{\\pict{\\*\\picprop{\\sp{\\sn wzDescription}{\\sv :\\u8364?\\tab\\}}}}\\pngblip "_s +
               QString::fromLatin1(png) + u"}b}"_s;
    };
    const std::tuple<QSize, Problem, QString> cases[] = {
        {{3, 2}, Problem::None, u"[24]a[24 pic :\u20AC\t}]\uFFFC[24]b"_s},
        {{5000, 1}, Problem::TooManyPixels, u"[24]a:\u20AC\t}b"_s}, // the code stays
        {{4096, 4000}, Problem::TooManyPixels, u"[24]a:\u20AC\t}b"_s},
    };
    for (const auto &[size, problem, expected] : cases) {
        EXPECT_EQ(readAndDump(rtf(encoded(plain(size, 0xFFFF0000)).toHex()), problem), expected)
            << size.width();
    }
}

/// A text with a bit of everything, different for each seed.
QString randomRtf(unsigned seed)
{
    const QStringList words =
        uR"(a| b|\{|\}|\\|;|'|-|\tab |\line |\u233?|\u20320?|\u-10179?\u-8704?|\par |\plain |\pard |\sb80 |\li720 |)"
        uR"(\fi100 |\fi-100 |\ql |\qc |\qr |\qj |\f0 |\f1 |\f2 |\fs2 |\fs61 |\cf0 |\cf1 |\cf2 |\highlight0 |)"
        uR"(\highlight1 |\highlight2 |\b |\b0 |\i |\i0 |\ul |\ulnone |\strike |\strike0 |)"
        uR"({\pict{\*\picprop{\sp{\sn wzDescription}{\sv :-\}}}}\pngblip %1})"_s
            .arg(QString::fromLatin1(encoded(plain({2, 2}, 0xFF0000FF)).toHex()))
            .split(u'|');
    std::mt19937 random(seed);
    std::uniform_int_distribution<qsizetype> any(0, words.size() - 1);
    QString rtf =
        uR"({\rtf1{\fonttbl{\f1 Font 1;}{\f2 Font 2;}}{\colortbl;\red1\green2\blue3;\red255\green0\blue0;})"_s;
    for (int length = 0; length < 200; ++length) {
        rtf += words[any(random)];
    }
    return rtf + u'}';
}

TEST(RtfWriter, WhatIsWrittenIsReadBackTheSame)
{
    for (unsigned seed = 0; seed < 200; ++seed) {
        RichDocument document;
        ASSERT_TRUE(readRtf(randomRtf(seed), document).isOk());
        const QByteArray rtf = writeRtf(document);
        ASSERT_TRUE(std::ranges::all_of(rtf, [](char c) { return static_cast<unsigned char>(c) < 0x80; }));
        RichDocument fromBytes;
        ASSERT_TRUE(readRtf(QByteArrayView(rtf), fromBytes).isOk());
        ASSERT_EQ(dump(fromBytes), dump(document)) << rtf.toStdString();
        ASSERT_EQ(readAndDump(QString::fromLatin1(rtf)), dump(document));
    }
}

} // namespace
