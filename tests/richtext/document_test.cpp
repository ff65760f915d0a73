#include "richtext/dump.h"
#include "support/text.h"

#include <gtest/gtest.h>

namespace {

/// Paragraphs of plain text; "b|" before one makes it bold, "*" stands for a picture with the code ":)".
RichDocument documentOf(const QStringList &paragraphs)
{
    RichDocument document;
    const quint16 smile = document.pictureNumber(std::make_shared<const Picture>(Picture{{}, u":)"_s}));
    for (qsizetype index = 0; index < paragraphs.size(); ++index) {
        TextFormat format;
        format.bold = paragraphs[index].startsWith(u"b|");
        const quint16 number = document.formatNumber(format);
        ParagraphBuilder builder;
        for (const QChar c : paragraphs[index].sliced(format.bold ? 2 : 0)) {
            if (c == u'*') {
                builder.appendPicture(smile, number);
            } else {
                builder.append(QStringView(&c, 1), number);
            }
        }
        Paragraph paragraph = builder.take(0);
        if (index == 0) {
            document.replaceLast(std::move(paragraph));
        } else {
            document.appendParagraph(std::move(paragraph));
        }
    }
    return document;
}

TEST(RichDocument, InsertingAtEveryPositionAndTakingItOutAgain)
{
    const RichDocument original = documentOf({u"ab*c"_s, u""_s, u"b|d\U0001F600e"_s});
    const RichDocument inserted = documentOf({u"b|X"_s, u"*Y"_s, u"Z"_s});
    const QString text = original.plainText();
    for (qsizetype at = 0; at <= original.length(); ++at) {
        RichDocument document = original.copy(0, original.length());
        ASSERT_EQ(dump(document), dump(original));
        document.insert(at, inserted);
        ASSERT_EQ(document.length(), original.length() + inserted.length());
        ASSERT_EQ(document.plainText(0, at), original.plainText(0, at));
        ASSERT_EQ(document.plainText(at, at + inserted.length()), u"X\n:)Y\nZ"_s);
        ASSERT_EQ(document.plainText(at + inserted.length(), document.length()),
                  original.plainText(at, original.length()));
        ASSERT_EQ(dump(document.copy(at, at + inserted.length())), dump(inserted));
        document.remove(at, at + inserted.length());
        ASSERT_EQ(document.plainText(), text);
        ASSERT_EQ(document.length(), original.length());
    }
}

TEST(RichDocument, AppendingToAnEmptyOneTakesOverAll)
{
    RichDocument board;
    RichDocument line = documentOf({u"b|x*"_s});
    line.changeParagraphFormats(0, 0, [](ParagraphFormat &format) { format.spaceBefore = 80; });
    board.insert(0, line);
    EXPECT_EQ(dump(board), u"<0 80 0 0>[24 b]x[24 b pic :)]\uFFFC"_s);
    board.insert(board.length(), documentOf({u""_s, u"second"_s}));
    EXPECT_EQ(dump(board), u"<0 80 0 0>[24 b]x[24 b pic :)]\uFFFC\n[24]second"_s);
    board.insert(0, board);
    EXPECT_EQ(board.plainText(), u"x:)\nsecondx:)\nsecond"_s);
    board.clear();
    EXPECT_EQ(board.paragraphCount(), 1);
    EXPECT_EQ(board.length(), 0);
}

TEST(RichDocument, ARangeChangesItsLookAndNothingElse)
{
    RichDocument document = documentOf({u"abc"_s, u"b|de*"_s, u"fg"_s});
    document.changeFormats(2, 6, [&](TextFormat &format) {
        format.halfPoints = 20;
        format.font = document.fontNumber(u"Mono"_s);
    });
    EXPECT_EQ(dump(document), u"[24]ab[20 Mono]c\n[20 Mono b]de[24 b pic :)]\uFFFC\n[24]fg"_s);
    document.changeParagraphFormats(4, 8, [](ParagraphFormat &format) { format.leftIndent = 10; });
    EXPECT_EQ(dump(document),
              u"[24]ab[20 Mono]c\n<0 0 10 0>[20 Mono b]de[24 b pic :)]\uFFFC\n<0 0 10 0>[24]fg"_s);
    EXPECT_EQ(document.placeOf(-5).offset, 0);
    EXPECT_EQ(document.placeOf(99).paragraph, 2);
    EXPECT_EQ(document.positionOf(2), 8);
}

} // namespace
