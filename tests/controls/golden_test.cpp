#include "controls/SkinButton.h"
#include "controls/SkinFrame.h"
#include "skin/test_window.h"

#include <QDir>
#include <QPainter>

namespace {

constexpr int mostDiffering = 40;       // of 255, in any of a pixel's colours
constexpr double differingShare = 0.01; // of an area's pixels

constexpr QSize sheetSize(380, 172);
constexpr QRect windowArea(6, 6, 200, 108);
constexpr QRect frameArea(218, 6, 156, 108);
constexpr QSize buttonSize(56, 26);
constexpr ButtonState buttonStates[] = {ButtonState::Normal,   ButtonState::Over,     ButtonState::Clicked,
                                        ButtonState::Disabled, ButtonState::HasFocus, ButtonState::Down};

QPoint buttonPlace(int number)
{
    return {6 + 62 * number, 130};
}

/// The picture in both layers, drawn by the same strokes.
template <typename Strokes>
SkinPicture draw(QSize size, Strokes strokes)
{
    const auto layer = [&](int scale) {
        QImage image = plain(size * scale, 0);
        QPainter painter(&image);
        painter.scale(scale, scale);
        painter.setRenderHint(QPainter::Antialiasing);
        strokes(painter);
        return image;
    };
    return {layer(1), layer(2)};
}

/// The pieces of a border, in the order in which skins name them.
std::array<SkinPicture, 8> cutUp(const SkinPicture &border, const QMargins &edges)
{
    const QRect all = border.image.rect();
    const QRect in = all.marginsRemoved(edges);
    const std::array columns = {std::pair(0, edges.left()), std::pair(in.left(), in.width()),
                                std::pair(in.right() + 1, edges.right())};
    const std::array rows = {std::pair(0, edges.top()), std::pair(in.top(), in.height()),
                             std::pair(in.bottom() + 1, edges.bottom())};
    std::array<SkinPicture, 8> pieces;
    for (std::size_t i = 0; i < 8; ++i) {
        const std::size_t place = i < 4 ? i : i + 1; // the middle is no piece
        const auto [x, width] = columns[place % 3];
        const auto [y, height] = rows[place / 3];
        pieces[i] = {border.image.copy(x, y, width, height),
                     border.image2x.copy(2 * x, 2 * y, 2 * width, 2 * height)};
    }
    return pieces;
}

void roundedBox(QPainter &painter, const QRectF &box, qreal radius, QColor top, QColor bottom, QColor line)
{
    QLinearGradient ground(box.topLeft(), box.bottomLeft());
    ground.setColorAt(0, top);
    ground.setColorAt(1, bottom);
    painter.setBrush(ground);
    painter.setPen(QPen(line, 1));
    painter.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

SkinPicture drawnButton(QColor top, QColor bottom, QColor line)
{
    return draw(buttonSize, [&](QPainter &painter) {
        roundedBox(painter, QRectF(QPointF(), QSizeF(buttonSize)), 6, top, bottom, line);
    });
}

void dressButton(SkinButton &button)
{
    const auto give = [&](ButtonState state, const SkinPicture &picture) {
        button.SetSkin(state, bitmapOf(picture.image, picture.image2x));
    };
    give(ButtonState::Normal, drawnButton(QColor(0xF8FAFC), QColor(0xC4D0DC), QColor(0x5A6C80)));
    give(ButtonState::Over, drawnButton(QColor(0xFFFFFF), QColor(0xD8E8F8), QColor(0x2C6CB0)));
    give(ButtonState::Clicked, drawnButton(QColor(0xA8B8C8), QColor(0xD8E0E8), QColor(0x3C4C60)));
    give(ButtonState::Disabled, drawnButton(QColor(0xE8E8E8), QColor(0xDCDCDC), QColor(0xB0B0B0)));
    give(ButtonState::HasFocus, drawnButton(QColor(0xF8FAFC), QColor(0xC4D0DC), QColor(0xE08020)));
    give(ButtonState::Down, drawnButton(QColor(0x90A8C0), QColor(0xB8C8D8), QColor(0x203040)));
    button.FinishSkin();
    give(ButtonState::Overlay, draw({46, 6}, [](QPainter &painter) {
             painter.setPen(QPen(QColor(0xC03030), 1.5));
             painter.drawLine(QPointF(2, 3), QPointF(8, 3));
             painter.drawEllipse(QPointF(42, 3), 2, 2);
         }));
    button.setFont(QFont(u"DejaVu Sans"_s, 9));
    button.setCaption(u"&Send"_s);
    button.Colours.ForeColour = 0x402010;
    button.Colours.DisabledForeColour = 0x909090;
    button.ClickTextOffset = QPoint(1, 1);
}

void dressFrame(SkinFrame &frame)
{
    const std::array pieces = cutUp(
        draw({30, 30},
             [](QPainter &painter) {
                 roundedBox(painter, {0, 0, 30, 30}, 6, QColor(0xFFFFFF), QColor(0xD0DCE8), QColor(0x607890));
             }),
        {6, 6, 6, 6});
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        frame.SetSkin(static_cast<FramePiece>(i), bitmapOf(pieces[i].image, pieces[i].image2x));
    }
    const SkinPicture squares = draw({16, 16}, [](QPainter &painter) {
        painter.fillRect(QRectF(0, 0, 16, 16), QColor(0xF4F0E8));
        painter.fillRect(QRectF(0, 0, 8, 8), QColor(0xE8E0D0));
        painter.fillRect(QRectF(8, 8, 8, 8), QColor(0xE8E0D0));
    });
    frame.SetSkin(FramePiece::Background, bitmapOf(squares.image, squares.image2x));
    frame.BackColor = frame.MaskColour; // rounded corners show what is behind
}

void writeWindowSkin(WrittenSkin &skin)
{
    const std::array pieces = cutUp(
        draw({40, 60},
             [](QPainter &painter) {
                 roundedBox(painter, {0, 0, 40, 60}, 8, QColor(0x5A8FC8), QColor(0x2C4A70), QColor(0x152438));
             }),
        {10, 24, 10, 10});
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        skin.set(u"Defaults"_s, pieceNames[i], pieces[i].image, pieces[i].image2x);
    }
    skin.set(u"Defaults"_s, u"MaskColour"_s, plain({1, 1}, fuchsia));
    skin.set(u"Defaults"_s, u"BackColour"_s, u"'#eef2f6'"_s);
    skin.set(u"Defaults"_s, u"FormCaptionBackColour"_s, u"'none'"_s);
    skin.set(u"Defaults"_s, u"FormCaptionForeColour"_s, u"'#ffffff'"_s);
    skin.set(u"Defaults"_s, u"FormCaptionShadowColour"_s, u"'#102030'"_s);
    skin.set(u"Defaults"_s, u"FormCaptionShadowOffset"_s, u"1"_s);
    skin.set(u"Defaults"_s, u"FormCaptionFont"_s, u"{ face = 'DejaVu Sans', size = 10, bold = true }"_s);
    skin.write();
}

QImage drawnSheet(qreal ratio)
{
    QImage sheet(sheetSize * ratio, QImage::Format_RGB32);
    sheet.fill(QColor(0x8090A0));
    sheet.setDevicePixelRatio(ratio);
    QPainter painter(&sheet);

    WrittenSkin skin;
    writeWindowSkin(skin);
    SkinInUse inUse(skin.app);
    EXPECT_TRUE(inUse.change());
    LoadedWindows windows;
    TestWindow window(inUse, windows);
    window.ratio = ratio;
    window.resize(windowArea.size());
    window.setWindowTitle(u"Lobby - Pylox Chat"_s);
    window.DoSkinChange();
    painter.save();
    painter.translate(windowArea.topLeft());
    painter.setClipRegion(window.m_face.shape());
    window.m_face.paint(painter);
    painter.restore();

    SkinButton button;
    dressButton(button);
    int number = 0;
    for (const ButtonState state : buttonStates) {
        painter.drawImage(buttonPlace(number++), button.picture(state, ratio));
    }
    SkinFrame frame;
    dressFrame(frame);
    frame.resize(frameArea.size());
    frame.render(&painter, frameArea.topLeft(), {}, {});
    painter.end();
    sheet.setDevicePixelRatio(1);
    return sheet;
}

/// How much of the area differs.
double difference(const QImage &one, const QImage &other, const QRect &area)
{
    int differing = 0;
    for (int i = 0; i < area.width() * area.height(); ++i) {
        const QPoint at = area.topLeft() + QPoint(i % area.width(), i / area.width());
        const QColor a = one.pixelColor(at);
        const QColor b = other.pixelColor(at);
        differing += std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                               std::abs(a.blue() - b.blue())}) > mostDiffering
                         ? 1
                         : 0;
    }
    return double(differing) / (area.width() * area.height());
}

} // namespace

/// script/golden draws the pictures anew.
TEST(Golden, WindowButtonsAndFrameLookAsTheyDid)
{
    for (const int percent : {100, 150, 200}) {
        const qreal ratio = percent / 100.0;
        const QImage sheet = drawnSheet(ratio);
        const QString file = QString(QStringLiteral(PYLOX_SOURCE_DIR) % u"/tests/golden/skin_" %
                                     QString::number(percent) % u".png");
        if (qEnvironmentVariableIsSet("PYLOX_GOLDEN_WRITE")) {
            ASSERT_TRUE(sheet.save(file)) << file.toStdString();
            continue;
        }
        const QImage golden(file);
        ASSERT_EQ(golden.size(), sheet.size()) << file.toStdString();
        std::vector areas = {windowArea, frameArea};
        for (int number = 0; number < 6; ++number) {
            areas.emplace_back(buttonPlace(number), buttonSize);
        }
        for (const QRect &area : areas) {
            const QRect pixels((QPointF(area.topLeft()) * ratio).toPoint(), area.size() * ratio);
            if (const double share = difference(golden, sheet, pixels); share > differingShare) {
                const QString seen = QString(u"skin_" % QString::number(percent) % u"_seen.png");
                sheet.save(seen);
                ADD_FAILURE() << "at " << area.left() << ", " << area.top() << ", " << percent
                              << " %: " << share * 100 << " % differ, see "
                              << QDir::current().filePath(seen).toStdString();
            }
        }
    }
}
