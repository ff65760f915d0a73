#include "richtext/documents.h"
#include "richtext/dump.h"
#include "support/text.h"

#include <gtest/gtest.h>

namespace {

TEST(RichDocument, InsertingAtEveryPositionAndTakingItOutAgain)
{
    const RichDocument original = documentOf({u"ab*c"_s, u""_s, u"b|d\U0001F600e"_s});
    const RichDocument inserted = documentOf({u"b|X"_s, u"*Y"_s, u"Z"_s});
    for (qsizetype at = 0; at <= original.length(); ++at) {
        RichDocument document = original.copy(0, original.length());
        ASSERT_EQ(dump(document), dump(original));
        document.insert(at, inserted);
        ASSERT_EQ(document.length(), original.length() + inserted.length());
        ASSERT_EQ(document.plainText(), QString(original.plainText(0, at) % u"X\n:)Y\nZ" %
                                                original.plainText(at, original.length())));
        ASSERT_EQ(dump(document.copy(at, at + inserted.length())), dump(inserted));
        document.remove(at, at + inserted.length());
        ASSERT_EQ(document.plainText(), original.plainText());
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
    RichDocument document = documentOf({u"a\U0001F600c"_s, u"b|d*e"_s, u"fg"_s});
    document.changeFormats(3, 7, [&](TextFormat &format) {
        format.halfPoints = 20;
        format.font = document.fontNumber(u"M"_s);
    });
    const QString look = u"[24]a\U0001F600[20 M]c\n%1[20 M b]d[20 M b pic :)]\uFFFC[24 b]e\n%1[24]fg"_s;
    EXPECT_EQ(dump(document), look.arg(QString()));
    document.changeParagraphFormats(5, 9, [](ParagraphFormat &format) { format.leftIndent = 10; });
    EXPECT_EQ(dump(document), look.arg(u"<0 0 10 0>"_s));
    EXPECT_EQ(document.placeOf(-5).offset, 0);
    EXPECT_EQ(document.placeOf(99).paragraph, 2);
    EXPECT_EQ(document.positionOf(2), 9);
}

TEST(RichDocument, PicturesTakeThePlacesOfCodesInWhatWasAppended)
{
    RichDocument document;
    document.append(documentOf({u"\U0001F600:) *:)"_s, u""_s}));
    document.append(documentOf({u"b|:):)x"_s}));
    document.changeFormats(3, 6, [](TextFormat &format) { format.italic = true; });
    document.putPictures({{2, 2, 1}, {6, 2, 1}, {10, 2, 1}, {12, 2, 1}});
    document.append(document);
    const QString looks = u"[24]\U0001F600[24*][24 i] [24 i*][24*]\n\n[24 b*][24 b*][24 b]x"_s;
    EXPECT_EQ(dump(document).remove(u'\uFFFC').replace(u" pic :)"_s, u"*"_s), looks + u'\n' + looks);
    EXPECT_EQ(document.plainText(12, document.length()), document.plainText(0, 11));
}

TEST(RichDocument, AVeryLongParagraphBecomesSeveralThatLookLikeOne)
{
    for (const QString &part : {u"words "_s, u"a line\u2028"_s, u"\U0001F600"_s}) {
        const QString text = part.repeated(50'000 / part.size());
        RichDocument whole = documentOf({text + u"end"});
        whole.changeFormats(20'000, 40'000, [](TextFormat &format) { format.italic = true; });
        whole.changeParagraphFormats(0, 1, [](ParagraphFormat &format) { format = {80, 60, 240, -20}; });
        RichDocument document;
        document.append(whole);
        ASSERT_EQ(document.paragraphCount(), 4);
        const bool hasLines = part.contains(u'\u2028');
        const QString shown = document.plainText();
        EXPECT_TRUE((hasLines ? shown : QString(shown).remove(u'\n')) == whole.plainText())
            << part.toStdString();
        EXPECT_TRUE(shown.isValidUtf16());
        for (qsizetype at = 0; at < 4; ++at) {
            const Paragraph &piece = document.paragraph(at);
            const ParagraphFormat wanted{at == 0 ? 80 : 0, at == 3 ? 60 : 0, 240, at == 0 ? -20 : 0};
            EXPECT_LE(piece.length(), 16'384);
            EXPECT_TRUE(document.paragraphFormat(piece.format()) == wanted) << at;
        }
    }
}

} // namespace
