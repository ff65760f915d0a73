#include "emotions/frmEmotShow.h"
#include "platform/image_list.h"
#include "skin/skin_catalogue.h"
#include "support/eventually.h"
#include "support/input.h"
#include "support/text.h"

#include <QPointer>

#include <gtest/gtest.h>

namespace {

constexpr QSize pictureSize(20, 16);

/// The first pictures of the palette's list, all of one size and colour.
ImageList pictures(int count)
{
    ImageList list;
    QImage picture(pictureSize, QImage::Format_RGB32);
    picture.fill(Qt::red);
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
    struct Case
    {
        int pictures, columns, rows;
    };
    for (const Case &c : {Case{0, 1, 1}, Case{1, 2, 1}, Case{2, 3, 1}, Case{5, 3, 2}, Case{6, 3, 3},
                          Case{8, 3, 3}, Case{31, 6, 6}}) {
        const EmoticonGrid grid = MeasureEmoticons(pictures(c.pictures));
        EXPECT_EQ(grid.count, c.pictures);
        EXPECT_EQ(grid.columns, c.columns) << c.pictures;
        EXPECT_EQ(grid.rows, c.rows) << c.pictures;
        const QSize cell = c.pictures == 0 ? QSize(0, 0) : pictureSize;
        EXPECT_EQ(grid.client(), QSize((cell.width() + 2) * c.columns + 4, (cell.height() + 2) * c.rows + 4));
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
