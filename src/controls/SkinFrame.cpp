#include "controls/SkinFrame.h"

#include "platform/text_looks.h"
#include "skin/aligned_painter.h"

#include <QPainter>

#include <cmath>

namespace {

constexpr int hundredthsPerInch = 2540;

constexpr std::array edges = {FramePiece::Top, FramePiece::Right, FramePiece::Left, FramePiece::Bottom};

constexpr std::array fromTheTop = {FramePiece::BottomRight, FramePiece::BottomLeft, FramePiece::TopRight,
                                   FramePiece::TopLeft,     FramePiece::Bottom,     FramePiece::Right,
                                   FramePiece::Left,        FramePiece::Top,        FramePiece::Background};

int toPixels(int hundredths, int dotsPerInch)
{
    return static_cast<int>(std::nearbyint(double(hundredths) * dotsPerInch / hundredthsPerInch));
}

std::size_t indexOf(FramePiece piece)
{
    return static_cast<std::size_t>(piece);
}

/// Without the pixels of the mask colour, which nothing would be drawn of.
SkinBitmap withoutMask(const cDIBSection &bitmap, ColourValue maskColour)
{
    auto result = std::make_shared<cDIBSection>();
    result->Create(bitmap.Width(), bitmap.Height());
    result->TransparentBlt(bitmap, {}, maskColour);
    return result;
}

} // namespace

SkinFrame::SkinFrame(QWidget *parent) : QWidget(parent) {}

void SkinFrame::SetSkin(FramePiece piece, const SkinBitmap &bitmap)
{
    if (piece == FramePiece::TopLeft) {
        for (const FramePiece edge : edges) {
            m_pieces[indexOf(edge)].reset();
        }
    }
    if (indexOf(piece) < m_pieces.size()) {
        m_pieces[indexOf(piece)] = bitmap == nullptr ? nullptr : withoutMask(*bitmap, MaskColour);
    }
    update();
}

int SkinFrame::ClientArea(FrameMeasure measure) const
{
    switch (measure) {
    case FrameMeasure::LeftWidth:
        return sizeOf(FramePiece::Left).width();
    case FrameMeasure::TopHeight:
        return sizeOf(FramePiece::Top).height();
    case FrameMeasure::ClientWidth:
        return width() - sizeOf(FramePiece::Left).width() - sizeOf(FramePiece::Right).width();
    case FrameMeasure::ClientHeight:
        return height() - sizeOf(FramePiece::Top).height() - sizeOf(FramePiece::Bottom).height();
    case FrameMeasure::RightWidth:
        return sizeOf(FramePiece::Right).width();
    case FrameMeasure::BottomHeight:
        return sizeOf(FramePiece::Bottom).height();
    }
    return 0;
}

void SkinFrame::Wrap(const QWidget &control)
{
    const QMargins borders(ClientArea(FrameMeasure::LeftWidth), ClientArea(FrameMeasure::TopHeight),
                           ClientArea(FrameMeasure::RightWidth), ClientArea(FrameMeasure::BottomHeight));
    setGeometry(control.geometry().marginsAdded(borders));
}

int SkinFrame::ScaleX(int hundredths) const
{
    return toPixels(hundredths, logicalDpiX());
}

int SkinFrame::ScaleY(int hundredths) const
{
    return toPixels(hundredths, logicalDpiY());
}

QSize SkinFrame::sizeOf(FramePiece piece) const
{
    const SkinBitmap &bitmap = m_pieces[indexOf(piece)];
    return bitmap == nullptr ? QSize(0, 0) : bitmap->size();
}

/// What the copies of the piece, or the one of a corner, cover of the frame.
QRect SkinFrame::areaOf(FramePiece piece) const
{
    const QSize size = sizeOf(piece);
    const QPoint end(width() - size.width(), height() - size.height());
    switch (piece) {
    case FramePiece::TopLeft:
        return {QPoint(), size};
    case FramePiece::Top:
        return {0, 0, width(), size.height()};
    case FramePiece::TopRight:
        return {QPoint(end.x(), 0), size};
    case FramePiece::Left:
        return {0, 0, size.width(), height()};
    case FramePiece::Right:
        return {end.x(), 0, size.width(), height()};
    case FramePiece::BottomLeft:
        return {QPoint(0, end.y()), size};
    case FramePiece::Bottom:
        return {0, end.y(), width(), size.height()};
    case FramePiece::BottomRight:
        return {end, size};
    case FramePiece::Background:
        break;
    }
    return rect();
}

/// The piece on top comes first and keeps its area from those below it: a hole in a corner is a hole in the
/// frame. Edges are tiled from 0; the corners cover their ends.
void SkinFrame::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    AlignedPainter aligned(painter);
    QRegion free(aligned.onDevice(rect()));
    for (const FramePiece piece : fromTheTop) {
        const QSize size = sizeOf(piece);
        if (size.isEmpty()) {
            continue;
        }
        const QRect area = areaOf(piece);
        painter.setClipRegion(free);
        for (int y = area.top(); y <= area.bottom(); y += size.height()) {
            for (int x = area.left(); x <= area.right(); x += size.width()) {
                aligned.draw({x, y}, *m_pieces[indexOf(piece)]);
            }
        }
        free -= aligned.onDevice(area);
    }
    const ColourValue ground = SystemColours(palette()).resolve(BackColor);
    if (ground != MaskColour) {
        painter.setClipRegion(free);
        aligned.fill(rect(), toColor(ground));
    }
}
