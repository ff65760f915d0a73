#include "skin/clsSkin.h"

#include "platform/text_looks.h"
#include "skin/aligned_painter.h"

#include <QLabel>
#include <QPainter>

#include <cmath>

namespace {

constexpr ColourValue noCaptionBackColour = 0xEFFFFFFF;

struct PieceSource
{
    FormItem item;
    const char16_t *key;
};

/// In the order in which the pieces' shapes are found.
constexpr std::array pieceSources = {
    PieceSource{FormItem::TopLeft, u"tl"},  PieceSource{FormItem::Top, u"t"},
    PieceSource{FormItem::TopRight, u"tr"}, PieceSource{FormItem::Left, u"l"},
    PieceSource{FormItem::Right, u"r"},     PieceSource{FormItem::BottomLeft, u"bl"},
    PieceSource{FormItem::Bottom, u"b"},    PieceSource{FormItem::BottomRight, u"br"},
};

QFont captionFont(const std::optional<QFont> &font, const QFont &fallback)
{
    QFont result = font.value_or(fallback);
    if (result.pointSizeF() > 0) {
        result.setPointSize(qMax(1, static_cast<int>(std::lround(result.pointSizeF()))));
    }
    result.setWeight(result.bold() ? QFont::Bold : QFont::Normal);
    return result;
}

} // namespace

clsSkin::~clsSkin() = default;

void clsSkin::LoadSkin(QWidget &window)
{
    m_window = &window;
    takeSize();
    m_regions = std::make_unique<cDIBSectionRgn2>();
    const qint32 maskColour = m_skin.description().FormDefaults(FormItem::MaskColour).number();
    for (std::size_t index = 0; index < Count; ++index) {
        Piece &piece = m_pieces[index];
        piece.key = QStringView(pieceSources[index].key).toString();
        piece.bitmap = m_skin.frame() == WindowFrame::Native
                           ? nullptr
                           : m_skin.description().FormDefaults(pieceSources[index].item).bitmap();
        m_regions->AddRegionFromDIB(piece.key, piece.bitmap.get(), maskColour);
    }
    m_systemButtons.clear();
    m_buttonsWidth = 0;
}

void clsSkin::AddSystemButton(QWidget &button)
{
    m_systemButtons.emplace_back(&button);
    placeButton(button);
}

void clsSkin::ReApplySkin()
{
    if (m_window != nullptr) {
        takeSize();
        MoveSystemButtons();
        SkinMeNormal(*m_window);
    }
}

void clsSkin::takeSize()
{
    m_width = m_window->width();
    m_height = m_window->height();
}

void clsSkin::SkinMeNormal(QWidget &window)
{
    m_window = &window;
    takeSize();
    makeBuffer();
    m_regions->CreateRegion(m_width, m_height);
    m_buffer.fill(groundColour());
    if (m_skin.frame() == WindowFrame::Native) {
        window.update();
        return;
    }
    if (!hasPieces()) {
        throw SkinError(QStringLiteral("the skin lacks a piece of the windows' border"));
    }
    {
        QPainter picture(&m_buffer);
        AlignedPainter painter(picture);
        drawTop(painter);
        drawSides(painter);
        drawBottom(painter);
        drawCorners(painter);
    }
    drawCaption();
    m_regions->apply(window);
    window.update();
}

bool clsSkin::hasPieces() const
{
    for (std::size_t index = 0; index < Count; ++index) {
        if (index != Bottom && m_pieces[index].bitmap == nullptr) {
            return false;
        }
    }
    return true;
}

QSize clsSkin::deviceSize() const
{
    const qreal ratio = m_window->devicePixelRatioF();
    return {static_cast<int>(std::lround(m_window->width() * ratio)),
            static_cast<int>(std::lround(m_window->height() * ratio))};
}

bool clsSkin::fits() const
{
    return m_window != nullptr && m_buffer.size() == deviceSize() &&
           qFuzzyCompare(m_buffer.devicePixelRatio(), m_window->devicePixelRatioF());
}

void clsSkin::makeBuffer()
{
    const QSize size = deviceSize();
    if (m_buffer.size() != size) {
        m_buffer = QImage(size, QImage::Format_RGB32);
    }
    m_buffer.setDevicePixelRatio(m_window->devicePixelRatioF());
}

QColor clsSkin::groundColour() const
{
    return toColor(m_skin.description().FormDefaults(FormItem::BackColour).colour());
}

void clsSkin::place(AlignedPainter &painter, PieceIndex index, QPoint picture, QPoint shape)
{
    const Piece &piece = m_pieces[index];
    if (m_buffer.devicePixelRatio() > 1) {
        // The shape keeps to pixels at 100 %: the ground must not shine through where a finer edge leaves part
        // of one free.
        painter.drawInBlocks(picture, *piece.bitmap);
    }
    painter.draw(picture, *piece.bitmap);
    m_regions->MergeRegion(piece.key, shape.x(), shape.y());
}

/// The picture's tiles begin behind the corner, those of the shape at 0; the corners, placed last, decide
/// about the ends of both.
void clsSkin::drawTop(AlignedPainter &painter)
{
    const int start = sizeOf(TopLeft).width();
    const int step = sizeOf(Top).width();
    for (int x = 0; x <= m_width; x += step) {
        place(painter, Top, {start + x, 0}, {x, 0});
    }
}

void clsSkin::drawSides(AlignedPainter &painter)
{
    const int right = m_width - sizeOf(Right).width();
    const int step = sizeOf(Left).height();
    for (int row = 0; row <= m_height / step; ++row) {
        const int rightY = row * sizeOf(Right).height();
        place(painter, Left, {0, sizeOf(TopLeft).height() + row * step}, {0, row * step});
        place(painter, Right, {right, sizeOf(TopRight).height() + rightY}, {right, rightY});
    }
}

void clsSkin::drawBottom(AlignedPainter &painter)
{
    if (m_pieces[Bottom].bitmap == nullptr) {
        return;
    }
    const int start = sizeOf(BottomLeft).width();
    const int step = sizeOf(Bottom).width();
    const int y = m_height - sizeOf(Bottom).height();
    for (int x = 0; x <= m_width; x += step) {
        place(painter, Bottom, {start + x, y}, {x, y});
    }
}

void clsSkin::drawCorners(AlignedPainter &painter)
{
    const auto corner = [&](PieceIndex index, bool right, bool bottom) {
        const QSize size = sizeOf(index);
        const QPoint at(right ? m_width - size.width() : 0, bottom ? m_height - size.height() : 0);
        place(painter, index, at, at);
    };
    corner(TopLeft, false, false);
    corner(TopRight, true, false);
    corner(BottomLeft, false, true);
    corner(BottomRight, true, true);
}

/// A caption that is longer than the free part of its strip is cut there and says so.
void clsSkin::drawCaption()
{
    clsSkinResourceNew &skin = m_skin.description();
    QPainter painter(&m_buffer);
    painter.setFont(captionFont(skin.FormDefaults(FormItem::CaptionFont).font(), m_window->font()));
    const QFontMetrics metrics = painter.fontMetrics();
    const QPoint at(NonClient(NonClientPart::LeftWidth),
                    (NonClient(NonClientPart::TitleHeight) - captionLabel().height()) / 2);
    const int room = NonClient(NonClientPart::TitleFreeEnd) - at.x();
    const QString title = QString(m_window->windowTitle()).replace(u'\n', u' ').replace(u'\r', u' ');
    const QString text = metrics.elidedText(QString(u"  " % title % u"  "), Qt::ElideRight, qMax(0, room));
    const QPoint baseline = at + QPoint(0, metrics.ascent());

    const int offset = skin.FormDefaults(FormItem::CaptionShadowOffset).number();
    const QPoint shadow(offset, offset);
    const ColourValue ground = skin.FormDefaults(FormItem::CaptionBackColour).colour();
    if (ground != noCaptionBackColour) {
        painter.fillRect(QRect(at + shadow, QSize(metrics.horizontalAdvance(text), metrics.height())),
                         toColor(ground));
    }
    painter.setPen(toColor(skin.FormDefaults(FormItem::CaptionShadowColour).colour()));
    painter.drawText(baseline + shadow, text);
    painter.setPen(toColor(skin.FormDefaults(FormItem::CaptionForeColour).colour()));
    painter.drawText(baseline, text);
}

void clsSkin::ChangeCaption()
{
    if (m_window == nullptr || m_pieces[Top].bitmap == nullptr || m_pieces[TopLeft].bitmap == nullptr ||
        m_pieces[TopRight].bitmap == nullptr || m_buffer.isNull()) {
        return;
    }
    {
        QPainter picture(&m_buffer);
        AlignedPainter painter(picture);
        painter.fill(QRect(0, 0, m_width, sizeOf(Top).height()), groundColour());
        for (int x = 0; x <= m_width; x += sizeOf(Top).width()) {
            painter.draw({x, 0}, *m_pieces[Top].bitmap);
        }
        painter.draw({0, 0}, *m_pieces[TopLeft].bitmap);
        painter.draw({m_width - sizeOf(TopRight).width(), 0}, *m_pieces[TopRight].bitmap);
    }
    drawCaption();
    m_window->update(0, 0, m_width, sizeOf(Top).height());
}

void clsSkin::MoveSystemButtons()
{
    m_buttonsWidth = 0;
    for (const QPointer<QWidget> &button : m_systemButtons) {
        if (button != nullptr) {
            placeButton(*button);
        }
    }
}

void clsSkin::placeButton(QWidget &button)
{
    const int y = (NonClient(NonClientPart::TitleHeight) - button.height()) / 2;
    const int x = NonClient(NonClientPart::TitleFreeEnd) - button.width();
    m_buttonsWidth += button.width();
    button.move(x, y);
    button.setVisible(hasPieces()); // the desktop's frame has its own
}

int clsSkin::NonClient(NonClientPart part) const
{
    switch (part) {
    case NonClientPart::TitleHeight:
    case NonClientPart::TopHeight:
        return sizeOf(Top).height();
    case NonClientPart::LeftWidth:
        return sizeOf(Left).width();
    case NonClientPart::RightWidth:
        return sizeOf(Right).width();
    case NonClientPart::BottomHeight:
        return sizeOf(Bottom).height();
    case NonClientPart::SidesWidth:
        return sizeOf(Left).width() + sizeOf(Right).width();
    case NonClientPart::TopAndBottomHeight:
        return sizeOf(Top).height() + sizeOf(Bottom).height();
    case NonClientPart::TitleFreeEnd:
        return m_width - sizeOf(TopRight).width() - m_buttonsWidth;
    }
    return 0;
}

int clsSkin::GetSizingWidth() const
{
    return sizeOf(Top).width();
}

int clsSkin::GetSizingHeight() const
{
    return sizeOf(Left).height();
}

void clsSkin::Refresh()
{
    if (m_window != nullptr) {
        m_window->update();
    }
}

void clsSkin::paint(QPainter &painter) const
{
    const QRect onDevice = AlignedPainter(painter).onDevice(QRect(0, 0, m_width, m_height));
    if (onDevice.size() != m_buffer.size()) {
        painter.drawImage(0, 0, m_buffer); // onto a device of another ratio, as a printer is
        return;
    }
    QImage face = m_buffer; // shares the pixels
    face.setDevicePixelRatio(1);
    const AlignedPainter aligned(painter);
    painter.drawImage(onDevice.topLeft(), face);
}

const QLabel &clsSkin::captionLabel() const
{
    const auto *label =
        m_window->findChild<QLabel *>(QStringLiteral("lblCaption"), Qt::FindDirectChildrenOnly);
    if (label == nullptr) {
        throw SkinError(QStringLiteral("the window has no label for its caption"));
    }
    return *label;
}

QSize clsSkin::sizeOf(PieceIndex index) const
{
    const SkinBitmap &bitmap = m_pieces[index].bitmap;
    return bitmap == nullptr ? QSize(0, 0) : bitmap->size();
}
