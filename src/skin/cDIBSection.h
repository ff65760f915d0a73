#pragma once

#include "core/colours.h"
#include "platform/skin_storage.h"

#include <QImage>
#include <QPoint>
#include <QRect>

#include <memory>
#include <vector>

class QPainter;

/// A picture of a skin, or one put together from such pictures. Sizes and places are in pixels at 100 %; a
/// finer layer of twice the size goes along when a source brings one. Pixels may be transparent.
/// Empty, with no size, until it is created.
class cDIBSection
{
public:
    /// A transparent picture of this size; what was there before is gone. False, and empty, for a size that
    /// cannot be.
    bool Create(int width, int height);
    /// A copy of the picture; empty when that is null.
    void CreateFromPicture(const SkinPicture &picture);
    void ClearUp();

    [[nodiscard]] bool isEmpty() const { return m_image.isNull(); }
    [[nodiscard]] int Width() const { return m_image.width(); }
    [[nodiscard]] int Height() const { return m_image.height(); }
    [[nodiscard]] QSize size() const { return m_image.size(); }

    /// The colour at this place, counted from the top left; -1 outside the picture.
    [[nodiscard]] qint32 GetPixel(int x, int y) const;

    /// Whether nothing is to be seen there; its colour means nothing then.
    [[nodiscard]] bool isTransparentAt(int x, int y) const
    {
        return m_image.valid(x, y) && qAlpha(m_image.pixel(x, y)) == 0;
    }

    /// Copies that part of the source to this place; what lies outside either picture is left away.
    void LoadPictureBlt(const cDIBSection &source, QPoint place, const QRect &part);
    void LoadPictureBlt(const cDIBSection &source, QPoint place);

    /// Draws this picture at the place, on whole device pixels.
    void PaintPicture(QPainter &painter, QPoint place) const;

    /// Draws the source over this picture; its pixels of the transparent colour leave what is there.
    /// Throws SkinError for a source of more than 32,767 pixels in either direction.
    void TransparentBlt(const cDIBSection &source, QPoint place, ColourValue transparent);
    /// Draws this picture like that on another surface.
    void TransparentPaint(QPainter &painter, QPoint place, ColourValue transparent) const;

    /// The picture at 100 %.
    [[nodiscard]] const QImage &image() const { return m_image; }
    /// Draws that part of the picture over this many device pixels, from the layer that suits best. The
    /// painter's units are device pixels. What had to be scaled is kept for the next time.
    void drawOnDevice(QPainter &painter, const QRect &target, const QRect &part) const;
    /// Both layers.
    [[nodiscard]] SkinPicture picture() const { return {m_image, m_fine}; }

private:
    struct Scaled
    {
        QRect part;
        QImage image;
    };

    void addFineLayer();
    [[nodiscard]] const QImage &scaled(const QRect &part, QSize devicePixels) const;
    void compose(const cDIBSection &source, QPoint place, const QRect &part, bool replace);
    [[nodiscard]] cDIBSection keyed(ColourValue transparent) const;

    QImage m_image;
    QImage m_fine; ///< twice the size, or null
    mutable std::vector<Scaled> m_scaled;
};

/// A picture that several windows and controls share; null is none.
using SkinBitmap = std::shared_ptr<const cDIBSection>;

/// No pixel has it.
inline constexpr qint32 noMaskColour = -1;

/// The colour that this picture names by its first pixel; noMaskColour for no picture, or where that pixel is
/// transparent.
[[nodiscard]] qint32 maskColourOf(const SkinBitmap &bitmap);
