#include "emotions/frmEmotShow.h"
#include "platform/image_list.h"
#include "skin/skin_catalogue.h"
#include "support/eventually.h"
#include "support/input.h"
#include "support/pictures.h"
#include "support/text.h"

#include <QPointer>

#include <gtest/gtest.h>

namespace {

constexpr QSize pictureSize(20, 16);

/// The first pictures of the palette's list, all of one size and colour.
ImageList pictures(int count)
{
    ImageList list;
    const QImage picture = plain(pictureSize, 0xFFFF0000);
    for (const SkinKey &key :
         findSkinSection(u"Chat Room Smileys")->keys.first(static_cast<std::size_t>(count))) {
        list.add(key.name.toString(), picture);
    }
    list.add(u"eUnknown"_s, picture);
    return list;
}

struct Palette : testing::Test
{
    void SetUp() override
    {
        QObject::connect(palette, &frmEmotShow::picked, [this](const QString &key) { picked += key; });
        button.show();
        palette->ShowEmotions(button);
    }
    ~Palette() override { delete palette; }

    void click(QPoint place) const { clickAt(*palette, place); }
    void press(Qt::Key key) const { pressKey(*palette->focusWidget(), key); }

    QWidget button;
    ImageList list = pictures(8);
    QPointer<frmEmotShow> palette = new frmEmotShow(list, nullptr, nullptr);
    QStringList picked;
};

TEST(EmoticonGrids, LeaveOneCellMoreThanPictures)
{
    const std::tuple<int, int, int> cases[] = {{0, 1, 1}, {1, 2, 1}, {2, 3, 1}, {5, 3, 2},
                                               {6, 3, 3}, {8, 3, 3}, {31, 6, 6}};
    for (const auto &[count, columns, rows] : cases) {
        const EmoticonGrid grid = MeasureEmoticons(pictures(count));
        EXPECT_EQ(std::tuple(grid.count, grid.columns, grid.rows), std::tuple(count, columns, rows));
        const QSize cell = count == 0 ? QSize(2, 2) : QSize(22, 18);
        EXPECT_EQ(grid.client(), QSize(cell.width() * columns + 4, cell.height() * rows + 4)) << count;
    }
}

TEST_F(Palette, APictureIsPickedWhereItIsPressedAndReleased)
{
    const QPoint second(2 + 22, 2);
    click(second);
    click(second + QPoint(pictureSize.width(), pictureSize.height())); // its last column and row
    EXPECT_EQ(picked, (QStringList{u"eAngry"_s, u"eAngry"_s}));
    EXPECT_TRUE(palette->isVisible());

    picked.clear();
    click(QPoint(1, 1));                   // the margin
    click(QPoint(2 + 21, 2 + 4));          // the gap
    click(QPoint(2 + 2 * 22, 2 + 2 * 18)); // the cell without a picture
    sendMouse(*palette, QEvent::MouseButtonPress, second);
    sendMouse(*palette, QEvent::MouseButtonRelease, {3, 3});
    EXPECT_TRUE(picked.isEmpty()) << picked.join(u' ').toStdString();
}

TEST_F(Palette, TheKeyboardMovesPicksAndCloses)
{
    press(Qt::Key_Left); // there is nothing before the first
    press(Qt::Key_Space);
    press(Qt::Key_Right);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    press(Qt::Key_Down); // the last cell has no picture
    press(Qt::Key_Return);
    EXPECT_EQ(picked, (QStringList{u"eAngel"_s, u"eChillin"_s, u"ePylox"_s}));
    press(Qt::Key_Escape);
    EXPECT_TRUE(eventually([this] { return palette == nullptr; }));
}

TEST_F(Palette, AnotherActiveWindowClosesIt)
{
    ASSERT_TRUE(eventually([this] { return palette->isActiveWindow(); }));
    QCoreApplication::processEvents();
    EXPECT_FALSE(eventually([this] { return palette == nullptr; }, 600)) << "it stays while it is active";
    button.activateWindow();
    EXPECT_TRUE(eventually([this] { return palette == nullptr; }));
}

TEST(EmoticonPalette, TheWebPageHasTheLastCell)
{
    cDIBSection picture;
    picture.Create(20, 16);
    const ImageList list = pictures(31);
    frmEmotShow palette(list, std::make_shared<const cDIBSection>(picture), nullptr);
    const auto *web = palette.findChild<QWidget *>(u"Web"_s);
    ASSERT_NE(web, nullptr);
    EXPECT_EQ(web->pos(), QPoint(2 + 22 * 1, 2 + 18 * 5)) << "the 32nd cell of six columns";
}

} // namespace
