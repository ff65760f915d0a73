#include "controls/SkinButton.h"
#include "controls/fitting_button.h"
#include "skin/clsSkinResourceNew.h"
#include "skin/written_skin.h"
#include "support/eventually.h"

#include <QApplication>
#include <QPainter>

namespace {

/// White, with a frame and, at its left, a sign.
QImage pictureWithSign(int width, int signEnd)
{
    QImage image = plain({width, 28}, 0xFFFFFFFF);
    QPainter painter(&image);
    painter.fillRect(0, 0, 2, 28, Qt::black);
    painter.fillRect(width - 2, 0, 2, 28, Qt::black);
    painter.fillRect(12, 8, signEnd - 12, 12, Qt::red);
    return image;
}

TEST(FittingColumn, GrowsAlikeWhereACaptionComesTooNearToASign)
{
    const std::tuple<int, bool, int> cases[] = {{10, false, 0}, {12, true, 1}, {16, true, 1}};
    for (const auto &[points, bold, grows] : cases) {
        WrittenSkin written;
        written.set(u"Chat Rooms"_s, u"Normal Menu Button"_s, pictureWithSign(96, 24));
        written.set(u"Chat Rooms"_s, u"Menu Button Text"_s, u"'Menu'"_s);
        written.set(u"Default Button"_s, u"Normal Button"_s, pictureWithSign(96, 12));
        written.set(u"Default Button"_s, u"Font"_s,
                    u"{ face = 'DejaVu Sans', size = %1, bold = %2 }"_s.arg(points).arg(bold ? u"true"_s
                                                                                             : u"false"_s));
        written.write();
        clsSkinResourceNew skin(written.app);
        skin.Initialize();
        SkinButton menu;
        SkinButton exit;
        exit.setCaption(u"Exit"_s);
        dressFittingColumn({{&menu, RoomItem::NormalMenu, RoomItem::MenuText},
                            {&exit, RoomItem::NormalExit, RoomItem::ExitText}},
                           skin);
        EXPECT_EQ(menu.width() > 96, grows == 1) << points;
        EXPECT_EQ(exit.width(), menu.width());
        const int caption = QFontMetrics(menu.font()).horizontalAdvance(menu.Caption());
        EXPECT_GE((menu.width() - caption) / 2, 24 + 5) << "behind the sign";
        EXPECT_EQ(menu.strip().image().pixel(menu.width() - 1, 14), 0xFF000000) << "both ends are there";
    }
}

TEST(LatchedButton, ShowsThatItHasTheKeyboardWithAndWithoutASkin)
{
    for (const bool skinned : {true, false}) {
        QWidget window;
        SkinButton other(&window);
        SkinButton button(&window);
        button.setCaption(u"Tab"_s);
        button.resize(96, 28);
        if (skinned) {
            button.SetSkin(ButtonState::Normal, bitmapOf(plain({96, 28}, 0xFFFFFFFF)));
            button.SetSkin(ButtonState::Down, bitmapOf(plain({96, 28}, 0xFFC0C0C0)));
            button.FinishSkin();
        }
        window.show();
        window.activateWindow();
        button.setLatched(true);
        other.setFocus();
        const QImage without = button.grab().toImage();
        button.setFocus();
        ASSERT_TRUE(eventually([&] { return button.hasFocus(); }));
        EXPECT_NE(button.grab().toImage(), without) << skinned;
    }
}

} // namespace
