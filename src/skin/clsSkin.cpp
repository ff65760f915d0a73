#include "skin/clsSkin.h"

#include "platform/skin_values.h"
#include "platform/text_looks.h"
#include "skin/aligned_painter.h"
#include "skin/caption_look.h"

#include <QLabel>
#include <QPainter>

#include <cmath>

namespace {

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

} // namespace

clsSkin::~clsSkin() = default;

void clsSkin::LoadSkin(QWidget &window)
{
    m_window = &window;
    takeSize();
    m_regions = std::make_unique<cDIBSectionRgn2>();
    const qint32 maskColour = m_skin.description().FormDefaults(FormItem::MaskColour).number();
    for (std::size_t index = 0; index < Count; ++index) {
        takePiece(static_cast<PieceIndex>(index), maskColour);
    }
    m_systemButtons.clear();
    m_buttonsWidth = 0;
}

void clsSkin::takePiece(PieceIndex index, qint32 maskColour)
{
    Piece &piece = m_pieces[index];
    piece.key = QStringView(pieceSources[index].key).toString();
    piece.bitmap = m_skin.frame() == WindowFrame::Native
                       ? nullptr
                       : m_skin.description().FormDefaults(pieceSources[index].item).bitmap();
    if (!m_regions->AddRegionFromDIB(piece.key, piece.bitmap.get(), maskColour)) {
        const auto keys = findSkinSection(u"Defaults")->keys;
        const auto key = std::ranges::find(keys, static_cast<int>(pieceSources[index].item), &SkinKey::item);
        m_skin.reportOnce(QString(u"skin: " % key->name % u": the shape is too fine, a rectangle is used"));
    }
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
    m_buffer.fill(formColour(FormItem::BackColour));
    if (m_skin.frame() == WindowFrame::Native) {
        window.update();
        return;
    }
    if (!hasPieces()) {
        throw SkinError(QStringLiteral("the skin lacks a piece of the windows' border"));
    }
    QPainter picture(&m_buffer);
    {
        AlignedPainter painter(picture);
        drawTop(painter);
        drawSides(painter);
        drawBottom(painter);
        drawCorners(painter);
    }
    drawCaption(picture);
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

QColor clsSkin::formColour(FormItem item) const
{
    return toColor(m_skin.description().FormDefaults(item).colour());
}

void clsSkin::draw(AlignedPainter &painter, PieceIndex index, QPoint place) const
{
    const cDIBSection &bitmap = *m_pieces[index].bitmap;
    if (m_buffer.devicePixelRatio() > 1) {
        // The shape keeps to pixels at 100 %: the ground must not shine through where a finer edge leaves
        // part of one free.
        painter.drawInBlocks(place, bitmap);
    }
    painter.draw(place, bitmap);
}

void clsSkin::place(AlignedPainter &painter, PieceIndex index, QPoint picture, QPoint shape)
{
    draw(painter, index, picture);
    m_regions->MergeRegion(m_pieces[index].key, shape.x(), shape.y());
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

/// Stays within the title strip, which is all that a new caption draws anew; one that is longer than the free
/// part of it is cut there and says so.
void clsSkin::drawCaption(QPainter &painter)
{
    clsSkinResourceNew &skin = m_skin.description();
    const int height = NonClient(NonClientPart::TitleHeight);
    painter.setClipRect(0, 0, m_width, height);
    painter.setFont(captionFont(skin.FormDefaults(FormItem::CaptionFont).font().value_or(m_window->font())));
    const QFontMetrics metrics = painter.fontMetrics();
    const QPoint at(NonClient(NonClientPart::LeftWidth), (height - captionLabel().height()) / 2);
    const int room = NonClient(NonClientPart::TitleFreeEnd) - at.x();
    const QString title =
        captionOf(m_window->windowTitle()).left(longestCaption).replace(u'\n', u' ').replace(u'\r', u' ');
    const QString text = metrics.elidedText(QString(u"  " % title % u"  "), Qt::ElideRight, qMax(0, room));
    const QPoint baseline = at + QPoint(0, metrics.ascent());

    const int farthest = qMax(m_width, m_height);
    const int offset = qBound(-farthest, skin.FormDefaults(FormItem::CaptionShadowOffset).number(), farthest);
    const QPoint shadow(offset, offset);
    if (skin.FormDefaults(FormItem::CaptionBackColour).colour() != noColour) {
        painter.fillRect(QRect(at + shadow, QSize(metrics.horizontalAdvance(text), metrics.height())),
                         formColour(FormItem::CaptionBackColour));
    }
    painter.setPen(formColour(FormItem::CaptionShadowColour));
    painter.drawText(baseline + shadow, text);
    painter.setPen(formColour(FormItem::CaptionForeColour));
    painter.drawText(baseline, text);
}

/// The tiles begin at 0 here, not behind the corner.
void clsSkin::ChangeCaption()
{
    if (m_window == nullptr || !hasPieces() || m_buffer.isNull()) {
        return;
    }
    const QRect strip(0, 0, m_width, sizeOf(Top).height());
    QPainter picture(&m_buffer);
    picture.setClipRect(strip);
    {
        AlignedPainter painter(picture);
        painter.fill(strip, formColour(FormItem::BackColour));
        for (int x = 0; x <= m_width; x += sizeOf(Top).width()) {
            draw(painter, Top, {x, 0});
        }
        draw(painter, TopLeft, {0, 0});
        draw(painter, TopRight, {m_width - sizeOf(TopRight).width(), 0});
    }
    drawCaption(picture);
    m_window->update(strip);
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
    // The desktop's frame has buttons of its own.
    const bool isShown = hasPieces() && !button.size().isEmpty();
    button.setVisible(isShown);
    if (!isShown) {
        return;
    }
    const int y = (NonClient(NonClientPart::TitleHeight) - button.height()) / 2;
    const int x = NonClient(NonClientPart::TitleFreeEnd) - button.width();
    m_buttonsWidth += button.width();
    button.move(x, y);
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
    // The same pixels at a ratio of 1; to change the ratio of a copy would copy them.
    const QImage face(m_buffer.constBits(), m_buffer.width(), m_buffer.height(), m_buffer.bytesPerLine(),
                      m_buffer.format());
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
