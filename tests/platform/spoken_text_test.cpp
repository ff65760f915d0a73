#include "platform/spoken_text.h"
#include "richtext/documents.h"
#include "support/text.h"

TEST(SpokenText, NamesStandInThePlacesOfPictures)
{
    RichDocument document = documentOf(QStringList(700, u"**b\U0001F600*c"_s));
    SpokenText spoken(document);
    // What is put in before a paragraph, and how much is taken out there.
    for (const auto &[first, taken] :
         {std::pair(700, 0), {600, 9}, {256, 2}, {255, 0}, {0, 1}, {255, 9999}}) {
        document.append(documentOf({u"x*"_s, u""_s, u"y"_s}));
        const qsizetype start = document.positionOf(first);
        document.insert(start, documentOf({u"*"_s, u"z"_s}));
        document.remove(start, start + taken);
        spoken.takeChanged(first);
        ASSERT_EQ(spoken.text(0, spoken.length()), document.plainText().replace(u":)"_s, u"smile"_s));
        qsizetype offset = 0;
        for (qsizetype at = 0; at <= document.length(); ++at) {
            ASSERT_EQ(spoken.offsetOf(document.placeOf(at)), offset);
            for (int left = document.plainText(at, at + 1) == u":)" ? 5 : 1; left > 0; --left) {
                ASSERT_EQ(spoken.placeAt(offset++), document.placeOf(at)) << offset;
            }
        }
        EXPECT_TRUE(spoken.placeAt(-1) == RichDocument::Place() && spoken.placeAt(offset) == document.end());
    }
}
