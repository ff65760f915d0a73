#pragma once

#include "core/keyed_collection.h"

#include <QPointer>
#include <QRegion>
#include <QWidget>

#include <optional>

class cDIBSection;

/// The shape of one picture: its pixels that are not cut away.
struct cRegionData
{
    QRegion RegionHandle;
    int lWidth = 0;
    int lHeight = 0;
};

/// Shapes of pictures by name.
class colRegionData : public KeyedCollection<cRegionData>
{
public:
    /// Null for a key that is there already.
    Pointer Add(const QRegion &RegionHandle, int lWidth, int lHeight, const QString &key)
    {
        return insert(key, std::make_shared<cRegionData>(cRegionData{RegionHandle, lWidth, lHeight}));
    }
};

/// Puts the shape of a window together from the shapes of the pictures along its edges. The shapes of the
/// pictures are found once and used at every new size. Gives the window its rectangle back when it goes.
class cDIBSectionRgn2
{
public:
    cDIBSectionRgn2() = default;
    ~cDIBSectionRgn2();
    cDIBSectionRgn2(const cDIBSectionRgn2 &) = delete;
    cDIBSectionRgn2 &operator=(const cDIBSectionRgn2 &) = delete;

    /// Begins anew with the whole rectangle of this size.
    void CreateRegion(int width, int height);

    /// Finds the shape of the picture and keeps it under the key, in place of an older one. Nothing is kept
    /// for no picture. False when the shape is too fine: the picture then counts as a whole rectangle.
    bool AddRegionFromDIB(const QString &key, const cDIBSection *bitmap, qint32 maskColour);

    /// Pastes the shape: within its rectangle the region becomes that shape, and nothing reaches over the
    /// window. Throws SkinError for a key that is not kept.
    void MergeRegion(const QString &key, int x, int y);

    [[nodiscard]] const QRegion &region() const { return m_region; }

    /// Gives the window this shape, unless it has it already.
    void apply(QWidget &window);
    /// Gives the window that has the shape its rectangle back and forgets it.
    void unapply();
    [[nodiscard]] bool Applied() const { return !m_window.isNull(); }

private:
    QRect m_whole;
    QRegion m_region;
    colRegionData m_shapes;
    QPointer<QWidget> m_window;
    WId m_native = 0; ///< of the window that was given the shape
};

/// The pixels of the picture that neither are fully transparent nor have the colour; scanned row by row.
/// Without a mask colour the whole picture. Nothing when it takes more than 2,000 rectangles: the window
/// system would be busy with nothing else.
[[nodiscard]] std::optional<QRegion> regionFromDIB(const cDIBSection &bitmap, qint32 maskColour);
