#include "controls/SkinButton.h"
#include "controls/SkinFrame.h"
#include "controls/dressing.h"
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

QImage drawnSheet(qreal ratio)
{
    QImage sheet(sheetSize * ratio, QImage::Format_RGB32);
    sheet.fill(QColor(0x8090A0));
    sheet.setDevicePixelRatio(ratio);
    QPainter painter(&sheet);

    clsMyApp app(QStringLiteral("/"));
    app.Skin = QStringLiteral(PYLOX_SOURCE_DIR "/tests/golden/skin/skin.toml");
    SkinInUse inUse(app);
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
    dressFormatButton(button, inUse.description(), RoomItem::BoldOverlay);
    button.setCaption(u"&Send"_s);
    button.ClickTextOffset = QPoint(1, 1);
    int number = 0;
    for (const ButtonState state : buttonStates) {
        painter.drawImage(buttonPlace(number++), button.picture(state, ratio));
    }
    SkinFrame frame;
    dressFrame(frame, inUse.description());
    frame.SetSkin(FramePiece::Background, inUse.description().PopupMenu(MenuItem::BackGround).bitmap());
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
        const int most = std::max(
            {std::abs(a.red() - b.red()), std::abs(a.green() - b.green()), std::abs(a.blue() - b.blue())});
        differing += most > mostDiffering ? 1 : 0;
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
