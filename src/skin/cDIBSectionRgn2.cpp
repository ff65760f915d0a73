#include "skin/cDIBSectionRgn2.h"

#include "platform/skin_error.h"
#include "platform/text_looks.h"
#include "skin/cDIBSection.h"

#include <QWindow>

#include <vector>

namespace {

constexpr std::size_t mostRectangles = 2000;

/// One row's runs of kept pixels.
using Runs = std::vector<std::pair<int, int>>;

class MaskColour
{
public:
    explicit MaskColour(qint32 colour) : m_pixel(toColor(static_cast<ColourValue>(colour)).rgb()) {}

    [[nodiscard]] bool cuts(QRgb pixel) const { return pixel == m_pixel || qAlpha(pixel) == 0; }

private:
    QRgb m_pixel;
};

void findRuns(const QRgb *line, int width, MaskColour mask, Runs &runs)
{
    runs.clear();
    for (int x = 0; x < width;) {
        while (x < width && mask.cuts(line[x])) {
            ++x;
        }
        const int start = x;
        while (x < width && !mask.cuts(line[x])) {
            ++x;
        }
        if (x > start) {
            runs.emplace_back(start, x);
        }
    }
}

void addBand(std::vector<QRect> &rects, const Runs &runs, int top, int bottom)
{
    for (const auto &[left, right] : runs) {
        rects.emplace_back(left, top, right - left, bottom - top);
    }
}

} // namespace

/// Rows with the same runs become one band, so that the rectangles come out sorted, as few as can be, and the
/// region can take them as they are.
std::optional<QRegion> regionFromDIB(const cDIBSection &bitmap, qint32 maskColour)
{
    if (maskColour == noMaskColour) {
        return QRegion(QRect(QPoint(), bitmap.size()));
    }
    const QImage &image = bitmap.image();
    const MaskColour mask(maskColour);
    std::vector<QRect> rects;
    Runs band;
    Runs runs;
    int bandTop = 0;
    for (int y = 0; y < image.height(); ++y) {
        findRuns(reinterpret_cast<const QRgb *>(image.constScanLine(y)), image.width(), mask, runs);
        if (runs != band) {
            addBand(rects, band, bandTop, y);
            if (rects.size() > mostRectangles) {
                return std::nullopt;
            }
            band.swap(runs);
            bandTop = y;
        }
    }
    addBand(rects, band, bandTop, image.height());
    if (rects.size() > mostRectangles) {
        return std::nullopt;
    }
    QRegion region;
    region.setRects(rects.data(), static_cast<int>(rects.size()));
    return region;
}

cDIBSectionRgn2::~cDIBSectionRgn2()
{
    unapply();
}

void cDIBSectionRgn2::CreateRegion(int width, int height)
{
    m_whole = QRect(0, 0, width, height);
    m_region = m_whole;
}

bool cDIBSectionRgn2::AddRegionFromDIB(const QString &key, const cDIBSection *bitmap, qint32 maskColour)
{
    m_shapes.Remove(key);
    if (bitmap == nullptr) {
        return true;
    }
    const std::optional<QRegion> shape = regionFromDIB(*bitmap, maskColour);
    m_shapes.Add(shape.value_or(QRegion(QRect(QPoint(), bitmap->size()))), bitmap->Width(), bitmap->Height(),
                 key);
    return shape.has_value();
}

void cDIBSectionRgn2::MergeRegion(const QString &key, int x, int y)
{
    const auto shape = m_shapes.Item(key);
    if (shape == nullptr) {
        throw SkinError(QString(u"no shape is known for the piece \"" % key % u"\""));
    }
    const QRect place(x, y, shape->lWidth, shape->lHeight);
    const bool coversPlace = shape->RegionHandle == QRegion(place.translated(-x, -y));
    if (coversPlace && m_region == QRegion(m_whole)) {
        return; // most pieces have no hole
    }
    m_region = (m_region - place) + (shape->RegionHandle.translated(x, y) & m_whole);
}

void cDIBSectionRgn2::apply(QWidget &window)
{
    m_window = &window;
    const QRegion mask = m_region == QRegion(m_whole) ? QRegion() : m_region;
    // Set on the native window: through the widget a whole repaint costs seven times as much.
    QWindow *native = window.windowHandle();
    if (native != nullptr && (m_native != window.internalWinId() || native->mask() != mask)) {
        m_native = window.internalWinId();
        native->setMask(mask);
    }
    window.update();
}

void cDIBSectionRgn2::unapply()
{
    if (m_window != nullptr) {
        if (QWindow *native = m_window->windowHandle()) {
            native->setMask(QRegion());
        }
        m_window->update();
    }
    m_window.clear();
}
