#include "directory_fixture.h"

namespace {

struct TenThousand : Directory
{
    void SetUp() override
    {
        Directory::SetUp();
        QString rooms;
        for (int i = 1; i <= 10'000; ++i) {
            rooms += room(u"1"_s, i, u"Room %1"_s.arg(i), i);
        }
        answer(u"<GETCHANNELS g=\"1\""_s, channels(rooms));
    }
};

TEST_F(TenThousand, AreFiltered)
{
    browse([this] {
        auto *filter = window->findChild<QLineEdit *>(u"txtFilter"_s);
        click(u"Lounge"_s);
        EXPECT_EQ(tree->model()->rowCount(find(u"Lounge (channels: 10000)"_s)), 10'000);
        filter->setText(u"rOOM 999"_s); // and 9990 to 9999
        EXPECT_EQ(rows().size(), 12);
        EXPECT_EQ(enabled(), u"create"_s) << "what is still shown is still selected";
        filter->setText(u"loung"_s);
        EXPECT_EQ(rows().size(), 10'001) << "with all that is in it";
        filter->setText(u"poker"_s);
        EXPECT_EQ(rows(), (QStringList{u"Games"_s, u" Cards"_s, u"  Poker"_s}));
        EXPECT_TRUE(tree->isExpanded(find(u"Cards"_s)) && enabled().isEmpty());
        pressKey(*filter, Qt::Key_Escape);
        EXPECT_EQ(rows().size(), 10'005);
        EXPECT_TRUE(tree->isExpanded(tree->model()->index(0, 0)) && !tree->isExpanded(find(u"Cards"_s)));
        EXPECT_TRUE(window->isVisible());
    });
}

TEST_F(TenThousand, LetEventsRunBetweenTheirBatches)
{
    browse([this] {
        QObject::connect(tree->model(), &QAbstractItemModel::rowsInserted, window,
                         [this] { QTimer::singleShot(0, window, &QWidget::close); });
        click(u"Lounge"_s);
        EXPECT_LT(rows().size(), 10'005) << "a closed window takes no more";
    });
}

} // namespace
