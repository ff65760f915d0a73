#pragma once

#include "skin/skinned_window.h"
#include "skin/written_skin.h"

/// The pieces of a border in the order in which a skin names them.
inline const std::array pieceNames = {u"TopLeft"_s, u"Top"_s,        u"TopRight"_s, u"Left"_s,
                                      u"Right"_s,   u"BottomLeft"_s, u"Bottom"_s,   u"BottomRight"_s};
enum Piece : std::size_t
{
    TL,
    T,
    TR,
    L,
    R,
    BL,
    B,
    BR
};

/// A skinned window with system buttons of these widths, on a screen of any scale.
class TestWindow final : public SkinnedWindow
{
public:
    TestWindow(SkinInUse &skin, LoadedWindows &windows, WindowDragging dragging = WindowDragging::Dialog)
        : SkinnedWindow(skin, windows, dragging, Qt::Window)
    {
        setObjectName(u"window"_s);
    }

    using SkinnedWindow::m_face;
    std::vector<QWidget *> systemButtons; ///< the right-most first
    qreal ratio = 1;

    QImage face() const { return m_face.hdc().convertToFormat(QImage::Format_ARGB32); }

protected:
    void SetupFormSkin() override
    {
        startSkin();
        for (QWidget *button : systemButtons) {
            m_face.AddSystemButton(*button);
        }
    }
    void layOut() override {}
    int metric(PaintDeviceMetric what) const override
    {
        switch (what) {
        case PdmDevicePixelRatio:
            return qCeil(ratio);
        case PdmDevicePixelRatioScaled:
            return qRound(ratio * devicePixelRatioFScale());
        default:
            return QWidget::metric(what);
        }
    }
};
