#include "controls/SkinFrame.h"
#include "skin/written_skin.h"

#include <QPainter>

namespace {

constexpr QRgb behind = 0xFF010203;
constexpr QRgb ground = 0xFF506070;

struct FrameTest : testing::Test
{
    void setPieces(const std::array<QSize, 9> &sizes)
    {
        for (std::size_t i = 0; i < sizes.size(); ++i) {
            const QImage piece = motley(sizes[i], static_cast<unsigned>(i), 4);
            frame.SetSkin(static_cast<FramePiece>(i), piece.isNull() ? nullptr : bitmapOf(piece));
            pieces[i] = plain(sizes[i], behind);
            paste(pieces[i], withoutFuchsia(piece), {});
        }
    }

    QImage painted()
    {
        QImage image = plain(frame.size(), behind);
        QPainter painter(&image);
        frame.render(&painter, {}, {}, {});
        return image;
    }

    /// Pixel by pixel; a hole in the piece that was placed last shows what is behind the frame.
    QImage expected() const
    {
        QImage image = plain(frame.size(), ground);
        const auto tile = [&](std::size_t piece, QSize area, QPoint start) {
            for (int x = 0; x < area.width() && !pieces[piece].isNull(); x += pieces[piece].width()) {
                for (int y = 0; y < area.height(); y += pieces[piece].height()) {
                    paste(image, pieces[piece], start + QPoint(x, y));
                }
            }
        };
        const int right = frame.width();
        const int bottom = frame.height();
        tile(8, frame.size(), {0, 0});
        tile(1, {right, 1}, {0, 0});
        tile(3, {1, bottom}, {0, 0});
        tile(4, {1, bottom}, {right - pieces[4].width(), 0});
        tile(6, {right, 1}, {0, bottom - pieces[6].height()});
        tile(0, {1, 1}, {0, 0});
        tile(2, {1, 1}, {right - pieces[2].width(), 0});
        tile(5, {1, 1}, {0, bottom - pieces[5].height()});
        tile(7, {1, 1}, {right - pieces[7].width(), bottom - pieces[7].height()});
        return image;
    }

    QWidget parent;
    SkinFrame frame{&parent};
    std::array<QImage, 9> pieces; ///< as they are seen
};

} // namespace

TEST_F(FrameTest, EdgesAreTiledAndCornersCoverThem)
{
    frame.BackColor = 0x706050;
    frame.MaskColour = 0xFF00FF;
    const std::array<QSize, 9> all = {QSize(9, 8), QSize(7, 5), QSize(6, 11), QSize(4, 9), QSize(5, 3),
                                      QSize(8, 8), QSize(9, 6), QSize(12, 4), QSize()};
    std::tuple<const char *, QSize, std::array<QSize, 9>> table[] = {
        {"ordinary", {70, 50}, all},
        {"whole tiles", {63, 54}, all},
        {"narrower than its corners", {12, 50}, all},
        {"a picture behind", {70, 50}, all},
        {"no corners", {70, 50}, {QSize(), all[1], QSize(), all[3], all[4], QSize(), all[6]}},
        {"only corners", {70, 50}, {all[0], QSize(), all[2], QSize(), QSize(), all[5], QSize(), all[7]}},
        {"nothing", {70, 50}, {}},
    };
    std::get<2>(table[3])[8] = {16, 12};
    for (const auto &[what, size, sizes] : table) {
        frame.resize(size);
        setPieces(sizes);
        EXPECT_EQ(painted(), expected()) << what;
    }
    setPieces(std::get<2>(table[3]));
    frame.SetSkin(FramePiece::TopLeft, bitmapOf(pieces[0]));
    for (const unsigned edge : {1U, 3U, 4U, 6U}) {
        pieces[edge] = QImage();
    }
    EXPECT_EQ(painted(), expected()) << "a new corner drops the edges only";
    setPieces({});
    frame.BackColor = frame.MaskColour;
    frame.Refresh();
    EXPECT_EQ(painted(), plain({70, 50}, behind)) << "the window shows";
}

TEST_F(FrameTest, TheClientAreaIsWhatTheEdgesLeave)
{
    const auto measures = [&] {
        QList<int> found;
        for (int measure = -1; measure <= 6; ++measure) {
            found += frame.ClientArea(static_cast<FrameMeasure>(measure));
        }
        return found;
    };
    frame.resize(200, 100);
    EXPECT_EQ(measures(), (QList<int>{0, 0, 0, 200, 100, 0, 0, 0}));
    setPieces({QSize(30, 30), QSize(3, 20), QSize(), QSize(6, 3), QSize(8, 3), QSize(), QSize(3, 4)});
    EXPECT_EQ(measures(), (QList<int>{0, 6, 20, 186, 76, 8, 4, 0}));
    QWidget control(&parent);
    control.setGeometry(100, 50, 120, 80);
    frame.Wrap(control);
    EXPECT_EQ(frame.geometry(), QRect(94, 30, 134, 104));
    EXPECT_EQ(frame.ScaleX(2540), frame.logicalDpiX());
    EXPECT_EQ(frame.ScaleY(5080), 2 * frame.logicalDpiY());
    EXPECT_EQ(frame.ScaleX(13), 0) << "half a pixel at 96 a inch is less than 13 hundredths";
}
