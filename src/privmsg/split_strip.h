#pragma once

#include <QWidget>

/// The strip between two boxes by which their heights are changed, and the bar that is shown in its place
/// meanwhile. It only tells what the mouse and the arrow keys do.
class SplitStrip final : public QWidget
{
    Q_OBJECT

public:
    explicit SplitStrip(QWidget *parent = nullptr);

    static constexpr int thickness = 8; ///< pixels

Q_SIGNALS:
    void pressed();
    /// The pointer, with the button down, is that many pixels below the strip's own top.
    void dragged(int y);
    void released();
    /// The keyboard wants the strip that many pixels further down.
    void stepped(int pixels);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
};
