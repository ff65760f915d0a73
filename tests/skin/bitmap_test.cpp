#include "skin/cDIBSectionRgn2.h"
#include "skin/written_skin.h"

#include <QPainter>

namespace {

constexpr qint32 fuchsiaValue = 0xFF00FF;

/// '.' is fuchsia, '_' transparent, 'k' black; anything else is a colour of its own.
QImage drawn(const QStringList &rows)
{
    QImage image(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()), QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QChar c = rows[y][x];
            image.setPixel(x, y, c == u'.' ? fuchsia : c == u'_' ? 0 : c == u'k' ? 0xFF000000 : 0xFF0000FF);
        }
    }
    return image;
}

/// The picture's pixels that are left, one by one.
QRegion shapeOf(const QImage &picture, qint32 mask)
{
    return pixelsOf(picture, [&](QColor pixel) {
        const qint32 value = pixel.blue() << 16 | pixel.green() << 8 | pixel.red();
        return mask == -1 || (value != mask && pixel.alpha() != 0);
    });
}

QImage doubled(const QImage &image)
{
    return image.scaled(image.size() * 2); // a pixel becomes four
}

QImage asArgb(const QImage &image)
{
    return image.convertToFormat(QImage::Format_ARGB32);
}

} // namespace

TEST(Shape, IsThePictureWithoutItsMaskColour)
{
    struct
    {
        const char *what;
        QImage picture;
        qint32 mask = fuchsiaValue;
    } const table[] = {
        {"nothing to cut", drawn({u"###"_s, u"###"_s})},
        {"all cut", drawn({u"..."_s, u"..."_s})},
        {"level stripes", drawn({u"###"_s, u"..."_s, u"###"_s, u"###"_s, u"..."_s})},
        {"a hole", drawn({u"####"_s, u"#..#"_s, u"#._#"_s, u"####"_s})},
        {"black is not transparent", drawn({u"k_k"_s})},
        {"another colour", drawn({u"k.#"_s, u"#kk"_s}), 0},
        {"no colour cuts nothing", drawn({u"#._k"_s}), -1},
        {"sparse", motley({31, 17}, 1, 9)},
        {"dense", motley({31, 17}, 2, 3)},
    };
    for (const auto &[what, picture, mask] : table) {
        EXPECT_TRUE((regionFromDIB(*bitmapOf(picture), mask).value() ^ shapeOf(picture, mask)).isEmpty())
            << what;
    }
    for (const int runs : {2000, 2001}) {
        QImage comb = plain({1, 2 * runs}, fuchsia);
        for (int y = 0; y < comb.height(); y += 2) {
            comb.setPixel(0, y, qRgb(1, 1, 1));
        }
        EXPECT_EQ(regionFromDIB(*bitmapOf(comb), fuchsiaValue).has_value(), runs == 2000) << "too fine";
    }
}

TEST(Shape, ALaterPieceWinsAndNothingReachesOverTheWindow)
{
    cDIBSectionRgn2 region;
    const auto add = [&](const QString &key, const QImage &picture) {
        return region.AddRegionFromDIB(key, bitmapOf(picture).get(), fuchsiaValue);
    };
    EXPECT_TRUE(add(u"frame"_s, drawn({u"###"_s, u"#.#"_s, u"###"_s})));
    EXPECT_TRUE(add(u"empty"_s, drawn({u"..."_s})));
    region.CreateRegion(5, 4);
    region.MergeRegion(u"empty"_s, 1, 0);
    region.MergeRegion(u"frame"_s, 3, 2); // reaches over both edges
    region.MergeRegion(u"frame"_s, -1, -1);
    region.MergeRegion(u"empty"_s, 9, 0);
    EXPECT_EQ(region.region(),
              shapeOf(drawn({u".#..#"_s, u"#####"_s, u"#####"_s, u"####."_s}), fuchsiaValue));
    region.CreateRegion(5, 5);
    EXPECT_EQ(region.region(), QRegion(0, 0, 5, 5)) << "begun anew";
    EXPECT_TRUE(add(u"empty"_s, drawn({u"#"_s})));
    region.MergeRegion(u"empty"_s, 0, 0);
    EXPECT_EQ(region.region(), QRegion(0, 0, 5, 5)) << "the newer picture under the key";
    region.AddRegionFromDIB(u"empty"_s, nullptr, fuchsiaValue);
    EXPECT_THROW(region.MergeRegion(u"empty"_s, 0, 0), SkinError) << "no picture, no shape";
}

TEST(Bitmap, TellsItsPixels)
{
    QImage image = plain({3, 2}, qRgb(1, 2, 3));
    image.setPixel(0, 0, qRgb(0x11, 0x22, 0x33));
    cDIBSection bitmap = *bitmapOf(image);
    EXPECT_EQ(bitmap.GetPixel(0, 0), 0x332211);
    for (const QPoint outside : {QPoint(-1, 0), QPoint(0, -1), QPoint(3, 0), QPoint(0, 2)}) {
        EXPECT_EQ(bitmap.GetPixel(outside.x(), outside.y()), -1);
    }
    EXPECT_FALSE(bitmap.Create(0, 4));
    EXPECT_TRUE(bitmap.isEmpty()) << "what was there before is gone";
}

TEST(Bitmap, IsCopiedAndLaidOverWithBothItsLayers)
{
    const QImage ground = motley({20, 10}, 5);
    const QImage picture = motley({8, 6}, 6, 4);
    const QImage fine = motley({16, 12}, 7, 4);
    for (const QPoint place : {QPoint(2, 1), QPoint(-3, -2), QPoint(15, 7), QPoint(50, 50)}) {
        cDIBSection laid = *bitmapOf(ground, doubled(ground));
        laid.TransparentBlt(*bitmapOf(picture, fine), place, fuchsiaValue);
        QImage expected = ground;
        paste(expected, withoutFuchsia(picture), place);
        EXPECT_EQ(asArgb(laid.picture().image), expected);
        QImage expectedFine = doubled(ground);
        paste(expectedFine, withoutFuchsia(fine), place * 2);
        EXPECT_EQ(asArgb(laid.picture().image2x), expectedFine);

        QImage surface = ground;
        QPainter painter(&surface);
        bitmapOf(picture)->TransparentPaint(painter, place, fuchsiaValue);
        painter.end();
        EXPECT_EQ(surface, expected);
    }
    cDIBSection strip;
    ASSERT_TRUE(strip.Create(20, 10));
    strip.LoadPictureBlt(*bitmapOf(ground), {});
    EXPECT_TRUE(strip.picture().image2x.isNull());
    strip.LoadPictureBlt(*bitmapOf(picture, fine), {5, 2}, QRect(1, 1, 100, 3));
    const QImage copied = asArgb(strip.picture().image);
    EXPECT_EQ(copied.copy(5, 2, 7, 3), picture.copy(1, 1, 7, 3)) << "transparent pixels go along";
    EXPECT_EQ(copied.copy(12, 0, 8, 10), ground.copy(12, 0, 8, 10)) << "no further than the source reaches";
    EXPECT_EQ(asArgb(strip.picture().image2x).copy(10, 4, 14, 6), fine.copy(2, 2, 14, 6));
    EXPECT_EQ(strip.picture().image2x.size(), QSize(40, 20));
    EXPECT_TRUE(bitmapOf(picture, motley({15, 12}, 8))->picture().image2x.isNull()) << "not twice the size";

    cDIBSection large;
    ASSERT_TRUE(large.Create(32767, 1));
    EXPECT_NO_THROW(strip.TransparentBlt(large, {}, 0));
    ASSERT_TRUE(large.Create(1, 32768));
    EXPECT_THROW(strip.TransparentBlt(large, {}, 0), SkinError);
}

TEST(AlignedPainting, NeighboursMeetWithoutSeamOrOverlapAtAnyScale)
{
    const SkinBitmap tile = bitmapOf(plain({7, 5}, qRgb(100, 100, 100)));
    for (const qreal ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 2.25, 3.0}) {
        for (const QPoint origin : {QPoint(0, 0), QPoint(3, 5)}) {
            QImage surface = plain({200, 150}, 0xFF000000);
            surface.setDevicePixelRatio(ratio);
            QPainter painter(&surface);
            painter.translate(origin);
            painter.setCompositionMode(QPainter::CompositionMode_Plus); // twice would be brighter
            for (int x = -7; x < 200; x += 7) {
                for (int y = -5; y < 150; y += 5) {
                    tile->PaintPicture(painter, {x, y});
                }
            }
            EXPECT_EQ(painter.worldTransform(), QTransform::fromTranslate(origin.x(), origin.y()));
            painter.end();
            const int bare = qCeil(0.5 + qreal(qMax(origin.x(), origin.y())) * ratio);
            const QRect tiled = surface.rect().adjusted(bare, bare, 0, 0);
            EXPECT_EQ(surface.copy(tiled), plain(tiled.size(), qRgb(100, 100, 100)))
                << ratio << " " << origin.x();
        }
    }
}
