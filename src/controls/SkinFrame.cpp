#include "controls/SkinFrame.h"

#include "platform/text_looks.h"
#include "skin/aligned_painter.h"

#include <QPainter>

#include <cmath>

namespace {

constexpr int hundredthsPerInch = 2540;

constexpr std::array edges = {FramePiece::Top, FramePiece::Right, FramePiece::Left, FramePiece::Bottom};

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
    m_picture = {};
}

void SkinFrame::Refresh()
{
    m_picture = {};
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

void SkinFrame::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    const QTransform toDevice = painter.deviceTransform();
    const AlignedPainter aligned(painter);
    const QRect area = aligned.onDevice(rect());
    if (m_picture.size() != area.size() || m_toDevice != toDevice) {
        m_toDevice = toDevice;
        m_picture = QImage(area.size(), QImage::Format_ARGB32_Premultiplied);
        m_picture.fill(Qt::transparent);
        QPainter picture(&m_picture);
        picture.setWorldTransform(toDevice * QTransform::fromTranslate(-area.x(), -area.y()));
        picture.setCompositionMode(QPainter::CompositionMode_Source);
        AlignedPainter onPicture(picture);
        compose(onPicture);
    }
    painter.drawImage(area.topLeft(), m_picture);
}

/// Edges are tiled from 0; the corners, which come last, cover their ends. Pieces replace what is below them:
/// a hole in a corner is a hole in the frame.
void SkinFrame::compose(AlignedPainter &painter) const
{
    const ColourValue ground = SystemColours(palette()).resolve(BackColor);
    if (ground != MaskColour) {
        painter.fill(rect(), toColor(ground));
    }
    const auto tile = [&](FramePiece piece, QPoint start, QPoint step, int times) {
        for (int i = 0; i <= times; ++i) {
            painter.draw(start + step * i, *m_pieces[indexOf(piece)]);
        }
    };
    const auto tileAcross = [&](FramePiece piece, int y) {
        if (const QSize size = sizeOf(piece); !size.isEmpty()) {
            tile(piece, {0, y}, {size.width(), 0}, width() / size.width());
        }
    };
    const auto tileDown = [&](FramePiece piece, int x) {
        if (const QSize size = sizeOf(piece); !size.isEmpty()) {
            tile(piece, {x, 0}, {0, size.height()}, height() / size.height());
        }
    };
    if (const QSize size = sizeOf(FramePiece::Background); !size.isEmpty()) {
        for (int y = 0; y <= height(); y += size.height()) {
            tileAcross(FramePiece::Background, y);
        }
    }
    tileAcross(FramePiece::Top, 0);
    tileDown(FramePiece::Left, 0);
    tileDown(FramePiece::Right, width() - sizeOf(FramePiece::Right).width());
    tileAcross(FramePiece::Bottom, height() - sizeOf(FramePiece::Bottom).height());

    const auto corner = [&](FramePiece piece, bool right, bool bottom) {
        if (const QSize size = sizeOf(piece); !size.isEmpty()) {
            const QPoint place(right ? width() - size.width() : 0, bottom ? height() - size.height() : 0);
            painter.draw(place, *m_pieces[indexOf(piece)]);
        }
    };
    corner(FramePiece::TopLeft, false, false);
    corner(FramePiece::TopRight, true, false);
    corner(FramePiece::BottomLeft, false, true);
    corner(FramePiece::BottomRight, true, true);
}
