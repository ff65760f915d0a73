#pragma once

#include "core/colours.h"
#include "skin/cDIBSection.h"

#include <QWidget>

#include <array>

/// What SetSkin takes. The numbers are the interface.
enum class FramePiece : int
{
    TopLeft = 0,
    Top = 1,
    TopRight = 2,
    Left = 3,
    Right = 4,
    BottomLeft = 5,
    Bottom = 6,
    BottomRight = 7,
    Background = 8,
};

/// What ClientArea measures.
enum class FrameMeasure : int
{
    LeftWidth = 0,
    TopHeight = 1,
    ClientWidth = 2,
    ClientHeight = 3,
    RightWidth = 4,
    BottomHeight = 5,
};

/// A border of skin pictures round an area of a window. What stands inside is placed over it by the window,
/// which asks for the client area. What is transparent or has the mask colour in the finished picture shows
/// the window behind.
class SkinFrame final : public QWidget
{
    Q_OBJECT

public:
    explicit SkinFrame(QWidget *parent = nullptr);

    /// The top left corner first: it drops the edges of an older skin. No bitmap is no piece.
    void SetSkin(FramePiece piece, const SkinBitmap &bitmap);

    /// In pixels; 0 for an unknown measure.
    [[nodiscard]] int ClientArea(FrameMeasure measure) const;

    /// Places and sizes the frame so that the control, which has the same parent, fills its client area.
    void Wrap(const QWidget &control);

    /// Draws it anew; also after a change of its colours.
    void Refresh() { update(); }

    /// Hundredths of a millimetre in pixels, halves to the even one.
    [[nodiscard]] int ScaleX(int hundredths) const;
    [[nodiscard]] int ScaleY(int hundredths) const;

    static constexpr ColourValue systemBackColor = 0x8000000F; ///< the button face

    ColourValue BackColor = systemBackColor; ///< below the pieces
    ColourValue MaskColour = 0x00FFFF;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] QSize sizeOf(FramePiece piece) const;
    [[nodiscard]] QRect areaOf(FramePiece piece) const;

    std::array<SkinBitmap, 9> m_pieces; ///< by FramePiece
};
