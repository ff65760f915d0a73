#include "skin/test_window.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QWindow>

#include <cmath>

namespace {

constexpr QRgb ground = 0xFF203040;
constexpr std::array ordinary = {QSize(10, 14), QSize(7, 20), QSize(13, 16), QSize(5, 9),
                                 QSize(6, 4),   QSize(8, 8),  QSize(9, 6),   QSize(12, 11)};

/// The ordinary sizes but for these.
std::array<QSize, 8> ordinaryBut(std::initializer_list<std::pair<Piece, QSize>> others)
{
    std::array<QSize, 8> sizes = ordinary;
    for (const auto &[piece, size] : others) {
        sizes[piece] = size;
    }
    return sizes;
}

/// What a window should look like and its shape, put together with loops over single pixels.
struct Expected
{
    QSize size;
    qreal ratio = 1;
    QImage face = plain(size * ratio, ground);
    QRegion shape = QRect(QPoint(), size);

    /// A picture that has neither layer for this scale is of one colour.
    void place(const QImage &picture, QPoint to)
    {
        const QPoint start = to * ratio;
        const QPoint end = (to + QPoint(picture.width(), picture.height())) * ratio;
        const QSize scaled(end.x() - start.x(), end.y() - start.y());
        paste(face, scaled == picture.size() ? picture : plain(scaled, picture.pixel(0, 0)), start);
    }
    void cut(const QImage &picture, QPoint to)
    {
        const QRegion kept =
            pixelsOf(withoutFuchsia(picture), [](QColor pixel) { return pixel.alpha() != 0; });
        shape = (shape - QRect(to, picture.size()) + kept.translated(to)) & QRect(QPoint(), size);
    }
};

struct WindowTest : testing::Test
{
    WindowTest()
    {
        set(u"BackColour"_s, u"'#203040'"_s);
        set(u"FormCaptionBackColour"_s, u"'none'"_s);
        set(u"FormCaptionFont"_s, u"{ face = 'DejaVu Sans', size = 9 }"_s);
        set(u"MaskColour"_s, plain({1, 1}, fuchsia));
    }

    template <typename Value>
    void set(const QString &key, const Value &value)
    {
        skin.set(u"Defaults"_s, key, value);
    }

    void setPieces(const std::array<QSize, 8> &sizes, unsigned holes, unsigned seed = 1)
    {
        for (std::size_t i = 0; i < sizes.size(); ++i) {
            const unsigned number = seed * 8 + static_cast<unsigned>(i);
            pieces[i] = holes == 0 ? plain(sizes[i], 0xFF000000 | number * 0x1D3B29)
                                   : motley(sizes[i], number, holes);
            sizes[i].isEmpty() ? skin.remove(u"Defaults"_s, pieceNames[i]) : set(pieceNames[i], pieces[i]);
        }
    }

    void dress()
    {
        skin.write();
        ASSERT_TRUE(inUse.change());
        windows.changeSkin();
    }

    Expected expected(QSize size, qreal ratio = 1) const
    {
        Expected all{size, ratio};
        const auto [w, h] = std::pair(size.width(), size.height());
        const auto edge = [&](Piece piece, QPoint picture, QPoint shape, QPoint step, int times) {
            for (int i = 0; i <= times; ++i) {
                all.place(pieces[piece], picture + step * i);
                all.cut(pieces[piece], shape + step * i);
            }
        };
        const auto width = [&](Piece piece) { return pieces[piece].width(); };
        const auto height = [&](Piece piece) { return pieces[piece].height(); };
        edge(T, {width(TL), 0}, {0, 0}, {width(T), 0}, w / width(T));
        edge(L, {0, height(TL)}, {0, 0}, {0, height(L)}, h / height(L));
        edge(R, {w - width(R), height(TR)}, {w - width(R), 0}, {0, height(R)}, h / height(L));
        if (!pieces[B].isNull()) {
            const int y = h - height(B);
            edge(B, {width(BL), y}, {0, y}, {width(B), 0}, w / width(B));
        }
        for (const Piece corner : {TL, TR, BL, BR}) {
            const QPoint place(corner == TL || corner == BL ? 0 : w - width(corner),
                               corner == TL || corner == TR ? 0 : h - height(corner));
            edge(corner, place, place, {}, 0);
        }
        return all;
    }

    /// Where the window's face is about of this colour.
    QRegion inkOf(const QColor &colour) const
    {
        return pixelsOf(window.face(), [&](QColor pixel) {
            return std::abs(pixel.red() - colour.red()) + std::abs(pixel.blue() - colour.blue()) < 200 &&
                   pixel.green() < 150;
        });
    }
    /// The shape as the desktop knows it.
    QRegion mask() const { return window.windowHandle()->mask(); }
    int titleEnd() const { return window.m_face.NonClient(NonClientPart::TitleFreeEnd); }

    void send(QEvent::Type type, QPoint place, Qt::MouseButtons held, Qt::MouseButton button = Qt::NoButton)
    {
        QMouseEvent event(type, place, origin + place, button, held, {});
        QCoreApplication::sendEvent(&window, &event);
    }

    WrittenSkin skin;
    QStringList reports;
    SkinInUse inUse{skin.app, WindowFrame::Skin, [this](const QString &line) { reports += line; }};
    LoadedWindows windows;
    TestWindow window{inUse, windows, WindowDragging::Room};
    std::array<QImage, 8> pieces;
    QPoint origin{500, 400}; ///< of the mouse's places, on the screen
};

/// A bare rectangle, with the desktop's own frame and the buttons that this frame has.
void expectDesktopsFrame(const TestWindow &window, const QWidget &ownButton)
{
    EXPECT_EQ(window.face(), plain(window.size(), ground));
    EXPECT_EQ(window.windowHandle()->mask(), QRegion());
    EXPECT_FALSE(window.windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_TRUE(window.isVisible() && ownButton.isHidden());
}

} // namespace

TEST_F(WindowTest, FaceAndShapeAreTiledFromThePieces)
{
    const std::tuple<const char *, QSize, std::array<QSize, 8>, qreal, unsigned> table[] = {
        {"ordinary", {101, 77}, ordinary, 1, 4},
        {"no bottom piece", {90, 70}, ordinaryBut({{B, {}}}), 1, 4},
        {"a right piece that is higher", {90, 70}, ordinaryBut({{R, {6, 30}}}), 1, 4},
        {"smaller than its corners", {9, 9}, ordinary, 1, 4},
        {"150 %", {101, 77}, ordinary, 1.5, 0},
        {"175 %", {101, 77}, ordinaryBut({{B, {}}}), 1.75, 0},
        {"200 %", {101, 77}, ordinary, 2, 0},
    };
    unsigned seed = 1;
    for (const auto &[what, size, sizes, ratio, holes] : table) {
        setPieces(sizes, holes, ++seed);
        window.ratio = ratio;
        window.resize(size);
        dress();
        const Expected all = expected(size, ratio);
        EXPECT_EQ(window.face(), all.face) << what;
        EXPECT_EQ(window.m_face.shape(), all.shape) << what;
        EXPECT_EQ(window.grab().toImage().convertToFormat(QImage::Format_ARGB32), all.face) << what;
    }
    // The shape keeps to whole pixels: where the finer picture has a hole the coarser one fills it.
    const QImage fine = motley(ordinary[TL] * 2, ++seed, 4);
    skin.set(u"Defaults"_s, u"TopLeft"_s, pieces[TL], fine);
    dress();
    QImage filled = expected(window.size(), 2).face;
    paste(filled, fine, {});
    EXPECT_EQ(window.face(), filled);
    window.setWindowTitle(u" "_s);
    EXPECT_EQ(window.face().copy(0, 0, 20, 28), filled.copy(0, 0, 20, 28)) << "a new title fills it too";
    EXPECT_EQ(reports, QStringList());
}

TEST_F(WindowTest, TheShapeFollowsTheWindowsSizeAndItsSkin)
{
    setPieces(ordinary, 4);
    dress();
    window.show();
    for (const QSize size : {QSize(100, 80), QSize(120, 70)}) {
        window.resize(size);
        EXPECT_EQ(mask(), expected(size).shape);
        EXPECT_EQ(window.face(), expected(size).face);
    }
    window.ratio = 2;
    window.grab();
    EXPECT_EQ(window.face().size(), QSize(240, 140)) << "made anew for another screen";
    window.ratio = 1;
    setPieces(ordinary, 0);
    dress();
    EXPECT_EQ(mask(), QRegion()) << "a whole rectangle needs no mask";
    setPieces(ordinary, 4);
    dress();
    EXPECT_NE(mask(), QRegion());
    skin.remove(u"Defaults"_s, u"MaskColour"_s);
    dress();
    EXPECT_EQ(mask(), QRegion()) << "no mask colour";
}

TEST_F(WindowTest, APieceThatIsMissingIsReportedAndTheWindowIsARectangle)
{
    QWidget close(&window);
    window.systemButtons = {&close};
    window.resize(60, 50);
    for (const std::size_t missing : {TL, T, TR, L, R, BL, BR}) {
        SCOPED_TRACE(pieceNames[missing].toStdString());
        setPieces(ordinary, 4);
        dress();
        window.show();
        EXPECT_TRUE(window.windowFlags().testFlag(Qt::FramelessWindowHint));
        EXPECT_FALSE(close.isHidden());
        reports.clear();
        skin.remove(u"Defaults"_s, pieceNames[missing]);
        dress();
        window.resize(61, 50);
        window.resize(60, 50);
        window.setWindowTitle(QString::number(missing));
        ASSERT_EQ(reports.size(), 1);
        EXPECT_TRUE(reports[0].startsWith(u"skin: window: ")) << reports[0].toStdString();
        expectDesktopsFrame(window, close);
    }
    setPieces(ordinary, 4);
    reports.clear();
    set(pieceNames[L], motley({100, 90}, 1, 3));
    TestWindow second(inUse, windows);
    dress();
    EXPECT_EQ(reports, QStringList(u"skin: Left: the shape is too fine, a rectangle is used"_s));
    const QRect beside(10, 16, 40, 20);
    EXPECT_EQ(window.m_face.shape() & beside, QRegion(beside)) << "too fine a shape";
    delete window.findChild<QLabel *>(u"lblCaption"_s);
    EXPECT_THROW(window.m_face.SkinMeNormal(window), SkinError);
}

TEST_F(WindowTest, TheDesktopsFrameNeedsNoPieces)
{
    SkinInUse native(skin.app, WindowFrame::Native, [this](const QString &line) { reports += line; });
    TestWindow framed(native, windows);
    QWidget close(&framed);
    framed.systemButtons = {&close};
    setPieces(ordinary, 4);
    skin.write();
    ASSERT_TRUE(native.change());
    framed.resize(50, 40);
    framed.DoSkinChange();
    framed.show();
    framed.setWindowTitle(u"title"_s);
    expectDesktopsFrame(framed, close);
    EXPECT_EQ(framed.m_face.NonClient(NonClientPart::TopHeight), 0);
    EXPECT_EQ(reports, QStringList());
}

TEST_F(WindowTest, MeasuresItsBorderAndLinesUpItsButtons)
{
    setPieces(ordinaryBut({{TR, {10, 16}}}), 4);
    window.resize(300, 200);
    dress();
    const auto measures = [&] {
        QList<int> found;
        for (int part = 0; part < 10; ++part) {
            found += window.m_face.NonClient(static_cast<NonClientPart>(part));
        }
        return found;
    };
    EXPECT_EQ(measures(), (QList<int>{0, 20, 20, 5, 6, 6, 11, 26, 290, 0}));
    EXPECT_EQ(window.m_face.GetSizingWidth(), 7);
    EXPECT_EQ(window.m_face.GetSizingHeight(), 9);
    const std::pair<QSize, int> table[] = {{{16, 16}, 274}, {{16, 11}, 258}, {{18, 24}, 240}, {{0, 0}, 240}};
    QList<QWidget *> buttons;
    for (const auto &[size, freeEnd] : table) {
        buttons += new QWidget(&window);
        buttons.last()->resize(size);
        window.m_face.AddSystemButton(*buttons.last());
        EXPECT_EQ(titleEnd(), freeEnd);
        EXPECT_EQ(buttons.last()->isHidden(), size.isEmpty()) << freeEnd;
    }
    const auto places = [&] {
        return QList<QPoint>{buttons[0]->pos(), buttons[1]->pos(), buttons[2]->pos()};
    };
    EXPECT_EQ(places(), (QList<QPoint>{{274, 2}, {258, 4}, {240, -2}})) << "halves towards zero";
    window.show();
    window.resize(400, 100);
    EXPECT_EQ(places(), (QList<QPoint>{{374, 2}, {358, 4}, {340, -2}}));
    EXPECT_EQ(titleEnd(), 340);
    setPieces(ordinaryBut({{TR, {10, 16}}, {B, {}}}), 4);
    dress();
    EXPECT_EQ(measures(), (QList<int>{0, 20, 20, 5, 6, 0, 11, 20, 390, 0})) << "begun without buttons";
}

TEST_F(WindowTest, TheCaptionStandsInItsStripAndCastsAShadow)
{
    const std::array<QSize, 8> sizes = ordinaryBut({{T, {7, 90}}, {L, {5, 11}}});
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        set(pieceNames[i], plain(sizes[i], 0xFFFFFFFF));
    }
    set(u"FormCaptionForeColour"_s, u"'#ff0000'"_s);
    set(u"FormCaptionShadowColour"_s, u"'#0000ff'"_s);
    set(u"FormCaptionShadowOffset"_s, u"30"_s);
    window.resize(300, 120);
    window.setWindowTitle(u"Iil\nH"_s);
    dress();
    const QRegion caption = inkOf(Qt::red);
    EXPECT_EQ(inkOf(Qt::blue), caption.translated(30, 30));
    const QFontMetrics metrics(QFont(u"DejaVu Sans"_s, 9));
    const int top = (90 - metrics.height()) / 2;
    const QRect ink = metrics.tightBoundingRect(u"Iil H"_s)
                          .translated(5 + metrics.horizontalAdvance(u"  "_s), top + metrics.ascent());
    EXPECT_TRUE(ink.adjusted(-1, -1, 1, 1).contains(caption.boundingRect()));
    EXPECT_TRUE(caption.boundingRect().adjusted(-2, -1, 2, 1).contains(ink));
    for (const QString &offset : {u"0"_s, u"'999999999999'"_s, u"'-999999999999'"_s}) {
        set(u"FormCaptionShadowOffset"_s, offset);
        dress();
        EXPECT_EQ(inkOf(Qt::red), caption) << "right above its shadow, or far from it";
        EXPECT_EQ(inkOf(Qt::blue), QRegion()) << offset.toStdString();
    }
    set(u"FormCaptionBackColour"_s, u"'#0000ff'"_s);
    set(u"FormCaptionShadowOffset"_s, u"2"_s);
    dress();
    const QSize box(metrics.horizontalAdvance(u"  Iil H  "_s), metrics.height());
    EXPECT_EQ(inkOf(Qt::blue).boundingRect(), QRect(QPoint(5 + 2, top + 2), box));
    EXPECT_TRUE(!inkOf(Qt::red).isEmpty() && inkOf(Qt::red).subtracted(caption).isEmpty()) << "over the box";

    set(u"FormCaptionBackColour"_s, u"'none'"_s);
    window.setWindowTitle(QString(100000, u'W'));
    dress();
    const int room = titleEnd() - inkOf(Qt::red).boundingRect().right();
    EXPECT_TRUE(room >= 0 && room < 40) << room << ": cut where the system buttons begin";
}

TEST_F(WindowTest, ANewTitleRedrawsItsStripOnly)
{
    setPieces(ordinaryBut({{TL, {10, 26}}}), 4); // it reaches below the strip
    set(u"FormCaptionForeColour"_s, u"'#ffffff'"_s);
    window.resize(100, 80);
    dress();
    window.show();
    window.setWindowTitle(u"I"_s);
    const QImage titled = window.face();
    window.setWindowTitle(QString());
    EXPECT_NE(window.face(), titled);

    Expected strip{{100, 20}};
    for (int x = 0; x <= 100; x += 7) { // from 0 here
        strip.place(pieces[T], {x, 0});
    }
    strip.place(pieces[TL], {0, 0});
    strip.place(pieces[TR], {100 - 13, 0});
    EXPECT_EQ(window.face().copy(0, 0, 100, 20), strip.face);
    const QRect below(0, 20, 100, 60);
    EXPECT_EQ(titled.copy(below), expected({100, 80}).face.copy(below));
    EXPECT_EQ(window.face().copy(below), titled.copy(below));
    EXPECT_EQ(mask(), expected({100, 80}).shape) << "the shape stays";
}

TEST_F(WindowTest, IsMovedAndResizedByItsOwnSurface)
{
    setPieces(ordinary, 4);
    QWidget close(&window);
    close.resize(16, 16);
    window.systemButtons = {&close};
    window.resize(200, 150); // the title is free up to 200 - 13 - 16, the borders are 6 and 6
    dress();
    window.show();
    TestWindow dialog(inUse, windows);
    dialog.resize(200, 150);
    dialog.DoSkinChange();
    const QRect start(origin, QSize(200, 150));
    const std::tuple<QPoint, DragZone, Qt::CursorShape, QRect> table[] = {
        {{170, 25}, DragZone::Move, Qt::ArrowCursor, start.translated(8, 9)},
        {{171, 25}, DragZone::None, Qt::ArrowCursor, start},
        {{193, 143}, DragZone::None, Qt::ArrowCursor, start},
        {{194, 143}, DragZone::Right, Qt::SizeHorCursor, start.adjusted(0, 0, 8, 0)},
        {{193, 144}, DragZone::Bottom, Qt::SizeVerCursor, start.adjusted(0, 0, 0, 9)},
        {{0, 149}, DragZone::Bottom, Qt::SizeVerCursor, start.adjusted(0, 0, 0, 9)},
        {{194, 144}, DragZone::BottomRight, Qt::SizeFDiagCursor, start.adjusted(0, 0, 8, 9)},
    };
    for (const auto &[place, zone, cursor, dragged] : table) {
        SCOPED_TRACE(testing::Message() << place.x() << ", " << place.y());
        window.setGeometry(start);
        EXPECT_EQ(window.zoneAt(place), zone);
        EXPECT_EQ(dialog.zoneAt(place), DragZone::Move);
        send(QEvent::MouseMove, place, Qt::NoButton);
        EXPECT_EQ(window.cursor().shape(), cursor);
        EXPECT_EQ(close.cursor().shape(), Qt::ArrowCursor) << "not that of the edge beside it";
        for (const Qt::MouseButton button : {Qt::RightButton, Qt::LeftButton}) {
            send(QEvent::MouseButtonPress, place, button, button);
            EXPECT_EQ(window.geometry(), start) << "a press alone changes nothing";
            send(QEvent::MouseMove, place + QPoint(4, 2), button);
            send(QEvent::MouseMove, place + QPoint(8, 9), button);
            send(QEvent::MouseButtonRelease, place + QPoint(8, 9), Qt::NoButton, button);
            EXPECT_EQ(window.geometry(), button == Qt::LeftButton ? dragged : start) << button;
        }
    }
}

TEST_F(WindowTest, EveryLoadedWindowWearsTheNewSkinAndNothingOfTheOld)
{
    {
        const TestWindow gone(inUse, windows);
    }
    TestWindow second(inUse, windows);
    window.resize(40, 50);
    second.resize(70, 80);
    window.show();
    EXPECT_TRUE(window.face().isNull()) << "no skin, no face";
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&window)->role(), QAccessible::Window);
    set(u"Font"_s, u"{ face = 'DejaVu Serif', size = 17 }"_s);
    for (const unsigned seed : {1U, 2U}) {
        setPieces(ordinary, 4, seed);
        dress();
        for (const TestWindow *each : {&window, &second}) {
            EXPECT_EQ(each->face(), expected(each->size()).face) << seed;
        }
        EXPECT_EQ(window.font().pointSize() == 17, seed == 1);
        skin.remove(u"Defaults"_s, u"Font"_s);
    }
    EXPECT_EQ(window.font(), QApplication::font());
    skin.writeText({}); // a skin that brings nothing
    ASSERT_TRUE(inUse.change());
    windows.changeSkin();
    EXPECT_EQ(mask(), QRegion());
}
