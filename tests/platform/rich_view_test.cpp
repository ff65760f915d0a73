#include "platform/rich_view.h"
#include "richtext/documents.h"
#include "support/text.h"

struct RichViewTest : testing::Test
{
    RichViewTest()
    {
        QStringList lines; // of all lengths, with pictures
        for (int line = 0; line < 600; ++line) {
            lines += QString(u"wide *words "_s.repeated(line % 7) + u'.');
        }
        document = documentOf(lines);
        layout.takeChanged(0);
        view.setSize({200, 150});
    }

    /// The paragraph at the upper edge, and how much of it is above.
    RichDocument::Place top()
    {
        view.settle();
        return {view.rows().front().paragraph, -view.rows().front().top};
    }
    /// The lower end of what is shown.
    int bottom()
    {
        view.settle();
        return view.rows().back().top + layout.heightOf(view.rows().back().paragraph) + RichView::margin;
    }

    RichDocument document;
    RichLayout layout{document};
    RichView view{layout};
    const RichDocument::Place beginning{0, -RichView::margin};
};

TEST_F(RichViewTest, WhatArrivesAndAnotherWidthLeaveTheTopWhereItIs)
{
    view.setSize({110, 90});
    EXPECT_EQ(bottom(), 90) << "it begins at the end";
    view.show({300, 0});
    view.moveBy(95); // into the lines of a long one
    view.setSize({400, 150});
    EXPECT_TRUE(top().paragraph == 300 && layout.heightOf(300) < 95);
    view.toEnd();
    for (const int back : {0, 1000}) {
        view.moveBy(-back);
        const auto before = top();
        document.append(documentOf(QStringList(200, u"* two lines of text"_s)));
        layout.takeAppended();
        view.letGoOfEnd();
        EXPECT_EQ(top(), before);
    }
    view.toEnd();
    view.moveBy(-10);
    EXPECT_TRUE(bottom() == 160 && view.value() + 10 == view.maximum()) << "from an end that was not shown";
}

TEST_F(RichViewTest, MovingThroughWhatWasNeverMeasuredIsExact)
{
    view.toValue(view.maximum() / 2);
    const auto middle = top();
    view.moveBy(-1370);
    view.moveBy(-2);
    view.moveBy(1372);
    EXPECT_EQ(top(), middle);
    for (const qint64 pixels : {-1'000'000, -1, -2000, 1'000'000, 1, 2000}) {
        view.moveBy(pixels);
        EXPECT_TRUE(pixels < 0 ? top() == beginning : bottom() == 150) << pixels;
        EXPECT_EQ(view.value(), pixels < 0 ? 0 : view.maximum());
    }
    document.remove(20, document.length());
    layout.takeChanged(0);
    view.takeChanged();
    for (const int pixels : {0, 50, -50}) {
        view.moveBy(pixels);
        EXPECT_TRUE(top() == beginning && view.value() == 0 && view.maximum() == 0) << "all is in view";
    }
}
