// The skin engine: reading a whole skin, one step of resizing a window, the shape beside the toolkit's own
// way to make one from a bitmap, and a skin change with four windows open.

#include "bench/figures.h"
#include "controls/SkinButton.h"
#include "controls/SkinFrame.h"
#include "controls/dressing.h"
#include "core/clsMyApp.h"
#include "platform/rich_edit.h"
#include "skin/clsProgramIcons.h"
#include "skin/skinned_window.h"

#include <QApplication>
#include <QBitmap>
#include <QDir>
#include <QElapsedTimer>
#include <QPainter>

#include <cstdio>

namespace {

constexpr int runs = 9;
constexpr int steps = 21;
constexpr int windowsOpen = 4;

QString skinFile(const char *name)
{
    return QDir::cleanPath(QApplication::applicationDirPath() +
                           QStringLiteral("/../share/pylox-chat/skins/%1.skn").arg(QLatin1String(name)));
}

double milliseconds(const QElapsedTimer &timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

template <typename Work>
double medianOf(int times, const Work &work)
{
    std::vector<double> figures;
    for (int i = 0; i < times; ++i) {
        QElapsedTimer timer;
        timer.start();
        work(i);
        figures.push_back(milliseconds(timer));
    }
    return median(figures);
}

/// The whole skin; gives the number of its icons.
std::size_t readWhole(const clsMyApp &myApp)
{
    clsSkinResourceNew skin(myApp);
    skin.Initialize();
    std::size_t icons = 0;
    clsProgramIcons programIcons(skin);
    QObject::connect(&programIcons, &clsProgramIcons::BitmapLoad, &programIcons, [&] { ++icons; });
    programIcons.LoadBitmaps();
    return icons;
}

/// A window with what the room window has: three frames, a board, buttons of each kind.
class RoomLikeWindow final : public SkinnedWindow
{
public:
    RoomLikeWindow(SkinInUse &skin, LoadedWindows &windows)
        : SkinnedWindow(skin, windows, WindowDragging::Room, Qt::Window)
    {
        for (int i = 0; i < 3; ++i) {
            m_frames.push_back(new SkinFrame(this));
        }
        for (int i = 0; i < 12; ++i) {
            m_buttons.push_back(new SkinButton(this));
        }
        m_board = new RichEdit(this);
        setWindowTitle(QStringLiteral("Lobby - Pylox Chat"));
        RoomLikeWindow::SetupFormSkin();
        resize(760, 520);
    }

    [[nodiscard]] clsSkin &face() { return m_face; }
    [[nodiscard]] bool isPainted() const { return m_isPainted; }
    void waitForPaint() { m_isPainted = false; }

protected:
    void SetupFormSkin() override
    {
        clsSkinResourceNew &description = skin();
        description.FormDefaults(FormItem::ReloadSystemButtons);
        startSkin();
        const std::array system = {FormItem::NormalSysClose, FormItem::NormalSysMin, FormItem::NormalSysHelp};
        for (std::size_t i = 0; i < system.size(); ++i) {
            dressSystemButton(*m_buttons[i], description, system[i]);
            m_face.AddSystemButton(*m_buttons[i]);
        }
        const std::array overlays = {RoomItem::BoldOverlay, RoomItem::ItalicOverlay,
                                     RoomItem::UnderlineOverlay, RoomItem::EmoticonOverlay};
        for (std::size_t i = 0; i < overlays.size(); ++i) {
            dressFormatButton(*m_buttons[3 + i], description, overlays[i]);
        }
        const std::array groups = {std::pair(RoomItem::NormalFont, RoomItem::FontText),
                                   std::pair(RoomItem::NormalEmotions, RoomItem::EmotionsText),
                                   std::pair(RoomItem::NormalSend, RoomItem::SendText),
                                   std::pair(RoomItem::NormalMenu, RoomItem::MenuText),
                                   std::pair(RoomItem::NormalExit, RoomItem::ExitText)};
        for (std::size_t i = 0; i < groups.size(); ++i) {
            dressRoomButton(*m_buttons[7 + i], description, groups[i].first, groups[i].second);
        }
        for (SkinFrame *frame : m_frames) {
            dressFrame(*frame, description);
        }
        description.FormDefaults(FormItem::ReleaseSystemButtons);
    }

    void layOut() override
    {
        m_frames[0]->setGeometry(10, 40, width() - 220, height() - 140);
        m_frames[1]->setGeometry(width() - 200, 40, 190, height() - 140);
        m_frames[2]->setGeometry(10, height() - 90, width() - 220, 40);
        m_board->setGeometry(20, 50, width() - 240, height() - 160);
        for (std::size_t i = 3; i < m_buttons.size(); ++i) {
            m_buttons[i]->move(10 + static_cast<int>(i) * 50, height() - 44);
        }
    }

    void paintEvent(QPaintEvent *event) override
    {
        SkinnedWindow::paintEvent(event);
        m_isPainted = true;
    }

private:
    std::vector<SkinFrame *> m_frames;
    std::vector<SkinButton *> m_buttons;
    RichEdit *m_board;
    bool m_isPainted = false;
};

void measureReading(const clsMyApp &myApp)
{
    std::size_t icons = 0;
    const double time = medianOf(runs, [&](int) { icons = readWhole(myApp); });
    if (icons == 0) {
        std::fprintf(stderr, "no icon was read from %s\n", qPrintable(myApp.Skin));
    }
    printFigure("skin_read", icons == 0 ? 1e9 : time, "ms", 40);
}

void measureComposing(SkinInUse &skin)
{
    LoadedWindows windows;
    RoomLikeWindow window(skin, windows);
    window.show();
    QApplication::processEvents();
    const auto compose = [&](const char *name, QSize size, double limit) {
        const double time = medianOf(steps, [&](int i) {
            window.resize(size + QSize(i % 2, i % 2)); // lays out, composes and shapes
        });
        printFigure(name, window.face().fits() ? time : 1e9, "ms", limit);
    };
    compose("skin_compose_1280x800", {1280, 800}, 3);
    compose("skin_compose_1920x1080", {1920, 1080}, 6);
}

struct PlacedPiece
{
    FormItem item;
    const char16_t *key;
};

/// The shape alone, and the toolkit's from a bitmap of the same shape.
void measureShape(clsSkinResourceNew &skin)
{
    constexpr QSize size(1920, 1080);
    const auto bitmap = [&](FormItem item) { return skin.FormDefaults(item).bitmap(); };
    const qint32 mask = skin.FormDefaults(FormItem::MaskColour).number();
    const std::array pieces = {
        PlacedPiece{FormItem::TopLeft, u"tl"},  PlacedPiece{FormItem::Top, u"t"},
        PlacedPiece{FormItem::TopRight, u"tr"}, PlacedPiece{FormItem::Left, u"l"},
        PlacedPiece{FormItem::Right, u"r"},     PlacedPiece{FormItem::BottomLeft, u"bl"},
        PlacedPiece{FormItem::Bottom, u"b"},    PlacedPiece{FormItem::BottomRight, u"br"}};
    cDIBSectionRgn2 regions;
    for (const PlacedPiece &piece : pieces) {
        regions.AddRegionFromDIB(QStringView(piece.key).toString(), bitmap(piece.item).get(), mask);
    }
    const auto merge = [&](FormItem item, const char16_t *key, QPoint place, QPoint step) {
        const SkinBitmap piece = bitmap(item);
        const int times = step.isNull()  ? 0
                          : step.x() > 0 ? size.width() / piece->Width()
                                         : size.height() / piece->Height();
        for (int i = 0; i <= times; ++i) {
            regions.MergeRegion(QStringView(key).toString(), place.x() + i * step.x() * piece->Width(),
                                place.y() + i * step.y() * piece->Height());
        }
    };
    const auto shape = [&](int) {
        regions.CreateRegion(size.width(), size.height());
        const int right = size.width() - bitmap(FormItem::Right)->Width();
        const int bottom = size.height() - bitmap(FormItem::Bottom)->Height();
        merge(FormItem::Top, u"t", {0, 0}, {1, 0});
        merge(FormItem::Left, u"l", {0, 0}, {0, 1});
        merge(FormItem::Right, u"r", {right, 0}, {0, 1});
        merge(FormItem::Bottom, u"b", {0, bottom}, {1, 0});
        merge(FormItem::TopLeft, u"tl", {0, 0}, {});
        merge(FormItem::TopRight, u"tr", {size.width() - bitmap(FormItem::TopRight)->Width(), 0}, {});
        merge(FormItem::BottomLeft, u"bl", {0, size.height() - bitmap(FormItem::BottomLeft)->Height()}, {});
        merge(FormItem::BottomRight, u"br",
              {size.width() - bitmap(FormItem::BottomRight)->Width(),
               size.height() - bitmap(FormItem::BottomRight)->Height()},
              {});
    };
    const double ours = medianOf(steps, shape);

    QBitmap asBitmap(size);
    asBitmap.clear();
    {
        QPainter painter(&asBitmap);
        painter.setClipRegion(regions.region());
        painter.fillRect(QRect(QPoint(), size), Qt::color1);
    }
    QRegion toolkits;
    const double theirs = medianOf(steps, [&](int) { toolkits = QRegion(asBitmap); });
    const bool same = toolkits == regions.region();
    if (!same) {
        std::fprintf(stderr, "the two shapes differ\n");
    }
    printFigure("skin_shape_1920x1080", ours, "ms");
    printFigure("toolkit_shape_1920x1080", theirs, "ms");
    printFigure("skin_shape_ratio", same ? ours / theirs : 1e9, "of the toolkit's time", 1);
}

void measureChange(clsMyApp &myApp, SkinInUse &skin)
{
    LoadedWindows loaded;
    std::vector<std::unique_ptr<RoomLikeWindow>> windows;
    for (int i = 0; i < windowsOpen; ++i) {
        windows.push_back(std::make_unique<RoomLikeWindow>(skin, loaded));
        windows.back()->show();
    }
    QApplication::processEvents();
    const double time = medianOf(runs, [&](int i) {
        for (const auto &window : windows) {
            window->waitForPaint();
        }
        myApp.Skin = skinFile(i % 2 == 0 ? "Dark" : "Light");
        if (skin.change()) {
            loaded.changeSkin();
        }
        while (!std::ranges::all_of(windows, [](const auto &window) { return window->isPainted(); })) {
            QApplication::processEvents();
        }
    });
    printFigure("skin_change_four_windows", time, "ms", 150);
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    clsMyApp myApp(QDir::tempPath());
    myApp.Skin = skinFile("Light");
    measureReading(myApp);
    SkinInUse skin(myApp);
    if (!skin.change() || !skin.description().isRead()) {
        return 1;
    }
    measureComposing(skin);
    measureShape(skin.description());
    measureChange(myApp, skin);
    return 0;
}
