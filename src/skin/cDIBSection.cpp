#include "skin/cDIBSection.h"

#include "platform/text_looks.h"
#include "skin/aligned_painter.h"

#include <QPainter>

#include <algorithm>
#include <limits>

namespace {

constexpr std::size_t scaledKept =
    24; // a button's frames, or the four sizes that a tile has between whole ratios
constexpr int longestKeyed = std::numeric_limits<qint16>::max();

QRect twice(const QRect &rect)
{
    return {rect.topLeft() * 2, rect.size() * 2};
}

QImage twice(const QImage &image)
{
    return image.scaled(image.size() * 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

void draw(QImage &target, QPoint place, const QImage &source, const QRect &part, bool replace)
{
    QPainter painter(&target);
    painter.setCompositionMode(replace ? QPainter::CompositionMode_Source
                                       : QPainter::CompositionMode_SourceOver);
    painter.drawImage(place, source, part);
}

QImage withoutColour(QImage image, QRgb colour)
{
    if (image.isNull()) {
        return image;
    }
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        std::replace(line, line + image.width(), colour, QRgb(0));
    }
    return image;
}

} // namespace

bool cDIBSection::Create(int width, int height)
{
    ClearUp();
    if (width <= 0 || height <= 0) {
        return false;
    }
    m_image = QImage(width, height, QImage::Format_ARGB32_Premultiplied);
    m_image.fill(Qt::transparent); // nothing happens to a null image
    return !m_image.isNull();
}

void cDIBSection::CreateFromPicture(const SkinPicture &picture)
{
    ClearUp();
    m_image = picture.image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (picture.image2x.size() == m_image.size() * 2) {
        m_fine = picture.image2x.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    }
}

void cDIBSection::ClearUp()
{
    m_image = {};
    m_fine = {};
    m_scaled.clear();
}

qint32 cDIBSection::GetPixel(int x, int y) const
{
    if (!m_image.valid(x, y)) {
        return -1;
    }
    const QRgb pixel = m_image.pixel(x, y);
    return qBlue(pixel) << 16 | qGreen(pixel) << 8 | qRed(pixel);
}

void cDIBSection::LoadPictureBlt(const cDIBSection &source, QPoint place, const QRect &part)
{
    compose(source, place, part, true);
}

void cDIBSection::LoadPictureBlt(const cDIBSection &source, QPoint place)
{
    compose(source, place, QRect(QPoint(), source.size()), true);
}

void cDIBSection::PaintPicture(QPainter &painter, QPoint place) const
{
    AlignedPainter(painter).draw(place, *this);
}

void cDIBSection::TransparentBlt(const cDIBSection &source, QPoint place, ColourValue transparent)
{
    compose(source.keyed(transparent), place, QRect(QPoint(), source.size()), false);
}

void cDIBSection::TransparentPaint(QPainter &painter, QPoint place, ColourValue transparent) const
{
    keyed(transparent).PaintPicture(painter, place);
}

void cDIBSection::drawOnDevice(QPainter &painter, const QRect &target, const QRect &part) const
{
    if (target.size() == part.size()) {
        painter.drawImage(target.topLeft(), m_image, part);
    } else if (!m_fine.isNull() && target.size() == part.size() * 2) {
        painter.drawImage(target.topLeft(), m_fine, twice(part));
    } else {
        painter.drawImage(target.topLeft(), scaled(part, target.size()));
    }
}

const QImage &cDIBSection::scaled(const QRect &part, QSize devicePixels) const
{
    const auto known = std::ranges::find_if(m_scaled, [&](const Scaled &scaled) {
        return scaled.part == part && scaled.image.size() == devicePixels;
    });
    if (known != m_scaled.end()) {
        return known->image;
    }
    if (m_scaled.size() >= scaledKept) {
        m_scaled.erase(m_scaled.begin());
    }
    const QImage source = m_fine.isNull() ? m_image.copy(part) : m_fine.copy(twice(part));
    return m_scaled
        .emplace_back(
            Scaled{part, source.scaled(devicePixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)})
        .image;
}

void cDIBSection::addFineLayer()
{
    if (m_fine.isNull()) {
        m_fine = twice(m_image);
    }
}

void cDIBSection::compose(const cDIBSection &source, QPoint place, const QRect &part, bool replace)
{
    if (isEmpty() || source.isEmpty()) {
        return;
    }
    m_scaled.clear();
    if (!source.m_fine.isNull()) {
        addFineLayer();
    }
    draw(m_image, place, source.m_image, part, replace);
    if (!m_fine.isNull()) {
        draw(m_fine, place * 2, source.m_fine.isNull() ? twice(source.m_image) : source.m_fine, twice(part),
             replace);
    }
}

cDIBSection cDIBSection::keyed(ColourValue transparent) const
{
    if (Width() > longestKeyed || Height() > longestKeyed) {
        throw SkinError(QStringLiteral("a picture of %1 x %2 pixels is too large to be laid over another")
                            .arg(Width())
                            .arg(Height()));
    }
    const QRgb colour = toColor(transparent).rgb();
    cDIBSection result;
    result.m_image = withoutColour(m_image, colour);
    result.m_fine = withoutColour(m_fine, colour);
    return result;
}

qint32 maskColourOf(const SkinBitmap &bitmap)
{
    return bitmap == nullptr || bitmap->isTransparentAt(0, 0) ? noMaskColour : bitmap->GetPixel(0, 0);
}
