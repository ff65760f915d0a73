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

TEST(RtfReader, WhatThisProgramWritesByHand)
{
    const QString table =
        u"{\\rtf1\\ansi{\\colortbl;\\red0\\green0\\blue0;\\red255\\green0\\blue0;\\red0\\green255\\blue0;"
        "\\red0\\green0\\blue255;\\red1\\green2\\blue3;}"_s;
    const std::pair<QString, QString> cases[] = {
        {table + u"{\\pard\\fs20\\cf2\\b\\highlight3 Ann: \\b0\\highlight0\\b\\cf4\\highlight5 hi}}",
         u"[20 b cff hff00]Ann: [20 b cff0000 h30201]hi"_s},
        {table + u"{\\pard\\cf4\\highlight5\\fs20Bob waves}}", u"[20 cff0000 h30201]Bob waves"_s},
        {table + u"{\\pard\\cf4\\fs20 1 \\b a\\{b\\}\\\\ \\b0 end}}",
         u"[20 cff0000]1 [20 b cff0000]a{b}\\ [20 cff0000]end"_s},
        {table + u"{\\pard\\cf2\\fs17\\b SERVER: \\b0 na\u00EFve \u4F60\U0001F600}}",
         u"[17 b cff]SERVER: [17 cff]na\u00EFve \u4F60\U0001F600"_s},
    };
    for (const auto &[rtf, expected] : cases) {
        EXPECT_EQ(readAndDump(rtf), expected);
    }
}

TEST(RtfReader, WhatWordProcessorsWrite)
{
    const std::pair<QString, QString> cases[] = {
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
    EXPECT_EQ(readAndDump(rtf(encoded(plain({3, 2}, 0xFFFF0000)).toHex())),
              u"[24]a[24 pic :\u20AC\t}]\uFFFC[24]b"_s);
    EXPECT_EQ(readAndDump(rtf(encoded(plain({5000, 1}, 0xFFFF0000)).toHex()), Problem::TooManyPixels),
              u"[24]a:\u20AC\t}b"_s)
        << "the code stays";
    EXPECT_EQ(readAndDump(rtf(encoded(plain({4096, 4000}, 0xFFFF0000)).toHex()), Problem::TooManyPixels),
              u"[24]a:\u20AC\t}b"_s);
}

/// A document with a bit of everything, different for each seed.
RichDocument randomDocument(unsigned seed)
{
    std::mt19937 random(seed);
    const auto upTo = [&](int most) { return std::uniform_int_distribution(0, most)(random); };
    const QString alphabet = u"ab \\{}\t\u2028\u00E9\u4F60;'-"_s;
    RichDocument document;
    QImage image(2, 2, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::blue);
    const quint16 picture = document.pictureNumber(std::make_shared<const Picture>(Picture{image, u":-}"_s}));
    for (int paragraphs = upTo(6); paragraphs >= 0; --paragraphs) {
        ParagraphBuilder builder;
        for (int runs = upTo(5); runs > 0; --runs) {
            TextFormat format;
            format.font =
                document.fontNumber(upTo(1) == 0 ? QString() : u"Font "_s + QString::number(upTo(3)));
            format.halfPoints = static_cast<quint16>(2 + upTo(60));
            format.colour = upTo(1) == 0 ? automaticColour : static_cast<ColourValue>(upTo(0xFFFFFF));
            format.background = upTo(1) == 0 ? automaticColour : static_cast<ColourValue>(upTo(3));
            format.bold = upTo(1) == 0;
            format.italic = upTo(1) == 0;
            format.underline = upTo(1) == 0;
            format.strikeOut = upTo(1) == 0;
            const quint16 number = document.formatNumber(format);
            if (upTo(4) == 0) {
                builder.appendPicture(picture, number);
            }
            for (int length = upTo(9); length > 0; --length) {
                builder.append(QStringView(alphabet).sliced(upTo(static_cast<int>(alphabet.size()) - 1), 1),
                               number);
            }
            builder.append(upTo(3) == 0 ? u"\U0001F600" : u"", number);
        }
        ParagraphFormat stand;
        stand.alignment = static_cast<ParagraphFormat::Alignment>(upTo(3));
        stand.spaceBefore = upTo(1) * 80;
        stand.leftIndent = upTo(1) * 720;
        stand.firstLineIndent = upTo(2) * 100 - 100;
        document.appendParagraph(builder.take(document.paragraphFormatNumber(stand)));
    }
    return document;
}

TEST(RtfWriter, WhatIsWrittenIsReadBackTheSame)
{
    for (unsigned seed = 0; seed < 200; ++seed) {
        const RichDocument document = randomDocument(seed);
        const QByteArray rtf = writeRtf(document);
        ASSERT_TRUE(std::ranges::all_of(rtf, [](char c) { return static_cast<unsigned char>(c) < 0x80; }));
        RichDocument fromBytes;
        ASSERT_TRUE(readRtf(QByteArrayView(rtf), fromBytes).isOk());
        ASSERT_EQ(dump(fromBytes), dump(document)) << rtf.toStdString();
        ASSERT_EQ(readAndDump(QString::fromLatin1(rtf)), dump(document));
        if (seed % 20 == 0) {
            for (qsizetype cut = 0; cut < rtf.size(); cut += 3) {
                RichDocument part;
                ASSERT_FALSE(readRtf(QByteArrayView(rtf).first(cut), part).isOk());
                ASSERT_LE(part.length(), document.length() + 8);
            }
        }
    }
}

} // namespace
