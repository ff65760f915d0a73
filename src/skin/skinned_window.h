#pragma once

#include "platform/skinnable.h"
#include "skin/clsSkin.h"
#include "skin/window_mover.h"

#include <QWidget>

class QLabel;

/// How a window may be changed with the mouse on its own surface.
enum class WindowDragging
{
    Room,   ///< moved by the title strip, resized by its right and bottom borders
    Dialog, ///< moved by the title strip and by every place that no control covers
};

/// A window that wears the skin. It has no frame of the desktop, unless the settings want one; the skin draws
/// its face and cuts its shape. It stands in the list of loaded windows for as long as it lives.
/// Without a skin file, or with one that lacks a piece, it is a plain rectangle and works as ever. Assistive
/// programs hear of it as a window.
class SkinnedWindow : public QWidget, public Skinnable
{
    Q_OBJECT

public:
    /// The flags are those of the window's kind (Qt::Window, Qt::Dialog); those of a frame are added.
    SkinnedWindow(SkinInUse &skin, LoadedWindows &windows, WindowDragging dragging, Qt::WindowFlags kind,
                  QWidget *parent = nullptr);
    ~SkinnedWindow() override;

    /// The whole skin anew, and the layout. A window that gets another frame for it comes back to the screen
    /// without taking the keyboard from another window.
    void DoSkinChange() override;

    /// What is dragged by a press at this place.
    [[nodiscard]] DragZone zoneAt(QPoint place) const;

protected:
    /// Hands the skin's values to the window's controls; the caption and the shape come from startSkin and
    /// Form_Resize.
    virtual void SetupFormSkin() = 0;
    /// Lays the window's controls out for its size of now; applySkin() comes right after it.
    virtual void layOut() = 0;

    /// Begins with the skin of now: to be called in SetupFormSkin before system buttons are added.
    void startSkin();
    /// The layout and the face for the size of now.
    void Form_Resize();

    [[nodiscard]] SkinInUse &skinInUse() const { return m_skinInUse; }
    [[nodiscard]] clsSkinResourceNew &skin() const { return m_skinInUse.description(); }
    clsSkin m_face;

    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void childEvent(QChildEvent *event) override;

private:
    void applySkin();
    void takeFrame();

    SkinInUse &m_skinInUse;
    LoadedWindows &m_windows;
    WindowDragging m_dragging;
    Qt::WindowFlags m_kind;
    WindowMover m_mover;
    QLabel *lblCaption;
};
