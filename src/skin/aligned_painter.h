#pragma once

#include <QColor>
#include <QPoint>
#include <QRect>
#include <QTransform>

class QPainter;
class cDIBSection;

/// Draws skin pictures on whole device pixels: every edge is rounded by itself, so that neighbours meet
/// without a seam or an overlap at any scale. While it lives the painter's units are device pixels.
class AlignedPainter
{
public:
    explicit AlignedPainter(QPainter &painter);
    ~AlignedPainter();
    AlignedPainter(const AlignedPainter &) = delete;
    AlignedPainter &operator=(const AlignedPainter &) = delete;

    /// The whole picture at its own size, its top left corner there.
    void draw(QPoint place, const cDIBSection &picture);
    void draw(QPoint place, const cDIBSection &picture, const QRect &part);
    /// The same without the finer layer and without smoothing: its pixels become blocks.
    void drawInBlocks(QPoint place, const cDIBSection &picture);
    void fill(const QRect &area, const QColor &colour);

    /// The device pixels of this area.
    [[nodiscard]] QRect onDevice(const QRect &area) const;

private:
    QPainter &m_painter;
    QTransform m_toDevice;
};
