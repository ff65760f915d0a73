#pragma once

#include "skin/cDIBSection.h"

#include <QTimer>
#include <QWidget>

#include <optional>
#include <vector>

class ImageList;
class QFrame;

/// What the emoticon pictures need in a grid, in pixels.
struct EmoticonGrid
{
    int count = 0;    ///< pictures that there are
    QSize cell{0, 0}; ///< the size of the last of them
    int columns = 1;
    int rows = 1;

    [[nodiscard]] QSize client() const
    {
        return {(cell.width() + 2) * columns + 4, (cell.height() + 2) * rows + 4};
    }
    /// The place of the picture at this position, counted from 0, with one pixel beyond on the right and
    /// below, which belong to it.
    [[nodiscard]] QRect cellAt(int position) const;
};

/// The grid of those emoticon pictures that the list has, and one cell more.
[[nodiscard]] EmoticonGrid MeasureEmoticons(const ImageList &imgList);

/// The emoticon palette: a small window of pictures under its button, to be picked from as often as wanted.
/// It closes when another window becomes active. The arrow keys move about in it, Enter and the space bar
/// pick, Esc closes.
class frmEmotShow final : public QWidget
{
    Q_OBJECT

public:
    /// Of the list nothing is kept. The picture of the web page, which may be null, gets the last cell.
    frmEmotShow(const ImageList &imgList, const SkinBitmap &web, QWidget *owner);

    /// Shows it under the button; above it where the screen ends below.
    void ShowEmotions(const QWidget &button);

    static constexpr QStringView webKey = u"Web";

Q_SIGNALS:
    /// A picture has been picked: its image key ("eHappy"), or that of the web page.
    void picked(const QString &key);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void DrawEmoticons(const ImageList &imgList, const SkinBitmap &web);
    void addCell(const QString &key, const QString &name, const QImage &picture);
    [[nodiscard]] QWidget *cellAt(QPoint place) const;
    [[nodiscard]] QString keyAt(QPoint place) const;
    void frame(const QWidget &cell);
    void moveFocus(int step);
    void closeUnlessActive();

    EmoticonGrid m_grid;
    std::vector<QWidget *> m_cells; ///< in the order of the grid
    QFrame *shpSelect;
    QString DownKey; ///< where the mouse button went down; empty for no cell
    QTimer tmrFocus;
    int m_ticks = 0;
    bool m_wasActive = false;
};
