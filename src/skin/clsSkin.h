#pragma once

#include "skin/cDIBSectionRgn2.h"
#include "skin/skin_in_use.h"
#include "skin/skin_items.h"

#include <QImage>
#include <QPointer>

#include <array>
#include <memory>
#include <vector>

class AlignedPainter;
class QLabel;
class QPainter;

/// What NonClient measures.
enum class NonClientPart : int
{
    TitleHeight = 1,
    TopHeight = 2,
    LeftWidth = 3,
    RightWidth = 4,
    BottomHeight = 5,
    SidesWidth = 6,
    TopAndBottomHeight = 7,
    TitleFreeEnd = 8, ///< where the free part of the title strip ends, on its right
};

/// The face of one window: ground, border pieces, caption and shadow, put together in a back buffer; the
/// shape that the pieces cut the window to; and the places of its system buttons. With the desktop's own
/// frame there are no pieces, only the ground. All sizes are pixels at 100 %.
class clsSkin
{
public:
    /// The window's caption is its title; the height of its label "lblCaption" says where it stands.
    explicit clsSkin(SkinInUse &skin) : m_skin(skin) {}
    ~clsSkin();
    clsSkin(const clsSkin &) = delete;
    clsSkin &operator=(const clsSkin &) = delete;

    /// Begins with the current skin: the pieces' shapes are found, and no button is in the list.
    void LoadSkin(QWidget &window);

    /// Places a button of the title strip left of those before it. The window owns it. One without a size,
    /// for which the skin has no picture, is hidden.
    void AddSystemButton(QWidget &button);

    /// The whole face and the buttons' places anew: after every change of the window's size.
    void ReApplySkin();

    /// Throws SkinError when a piece other than the bottom one is missing: the window then is a plain
    /// rectangle of the ground's colour.
    void SkinMeNormal(QWidget &window);
    void MoveSystemButtons();

    /// The title strip anew, with the window's title of now. Nothing where no skin draws it.
    void ChangeCaption();

    /// 0 for an unknown part and where the skin has no such piece.
    [[nodiscard]] int NonClient(NonClientPart part) const;
    [[nodiscard]] int GetSizingWidth() const;
    [[nodiscard]] int GetSizingHeight() const;

    /// Whether the skin has every piece that a window needs; without them it is left to the desktop's frame.
    [[nodiscard]] bool hasPieces() const;
    /// Whether the back buffer has the window's size, in device pixels, of now.
    [[nodiscard]] bool fits() const;

    /// The back buffer, in device pixels.
    [[nodiscard]] const QImage &hdc() const { return m_buffer; }
    [[nodiscard]] QRegion shape() const { return m_regions->region(); }

    /// Has the window show the back buffer.
    void Refresh();
    /// Shows it: what the window's paint event calls.
    void paint(QPainter &painter) const;

private:
    struct Piece
    {
        SkinBitmap bitmap; ///< null when the skin has none
        QString key;
    };
    enum PieceIndex : std::size_t
    {
        TopLeft,
        Top,
        TopRight,
        Left,
        Right,
        BottomLeft,
        Bottom,
        BottomRight,
        Count
    };

    [[nodiscard]] QSize deviceSize() const;
    void makeBuffer();
    void takeSize();
    void takePiece(PieceIndex index, qint32 maskColour);
    [[nodiscard]] QColor formColour(FormItem item) const;
    void drawTop(AlignedPainter &painter);
    void drawSides(AlignedPainter &painter);
    void drawBottom(AlignedPainter &painter);
    void drawCorners(AlignedPainter &painter);
    void drawCaption(QPainter &painter);
    void draw(AlignedPainter &painter, PieceIndex index, QPoint place) const;
    void place(AlignedPainter &painter, PieceIndex index, QPoint picture, QPoint shape);
    void placeButton(QWidget &button);
    [[nodiscard]] const QLabel &captionLabel() const;
    [[nodiscard]] QSize sizeOf(PieceIndex index) const;

    SkinInUse &m_skin;
    QPointer<QWidget> m_window;
    QImage m_buffer;
    int m_width = 0;
    int m_height = 0;
    std::array<Piece, Count> m_pieces;
    std::unique_ptr<cDIBSectionRgn2> m_regions = std::make_unique<cDIBSectionRgn2>();
    std::vector<QPointer<QWidget>> m_systemButtons;
    int m_buttonsWidth = 0;
};
