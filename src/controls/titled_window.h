#pragma once

#include "skin/skinned_window.h"

#include <QPointer>

class QKeyEvent;
class SkinButton;

/// What a window needs to wear the skin. Both must stay.
struct WindowDress
{
    SkinInUse &skin;
    LoadedWindows &windows;
};

/// What kind of window it is.
struct TitledKind
{
    const char16_t *name;
    const char16_t *helpAnchor;
    WindowDragging dragging = WindowDragging::Dialog;
    Qt::WindowFlags flags = Qt::Dialog;
};

/// A skinned window with the three buttons of the title strip: close, minimise and help. Dialogs are such
/// windows, and those of private conversations. Esc closes it and F1 asks for help; Enter presses its default
/// button, unless a control has its own use for it.
class TitledWindow : public SkinnedWindow
{
    Q_OBJECT

public:
    /// The name is the object's. The help anchor is the place of the help pages that tells about the window.
    TitledWindow(const WindowDress &dress, const TitledKind &kind, QWidget *owner);

    /// Shows the window over its owner, which cannot be used meanwhile, and brings it to the front. Nothing
    /// waits for its end, so what is under way goes on beneath it.
    void open();

    /// The same, and returns when the window has been hidden or closed. Events go on: the window, or the
    /// program, may be gone by then.
    void ShowModal();

Q_SIGNALS:
    /// The window that was opened has been hidden or closed. Comes a turn of events later.
    void dismissed();
    /// The user wants to read how the window is used.
    void helpRequested(const QString &anchor);

protected:
    /// Begins with the skin of now; with it the title strip's buttons have theirs.
    void startTitledSkin();

    /// The button that Enter presses; null for none.
    void setDefaultButton(SkinButton *button) { m_defaultButton = button; }

    /// The room that the borders leave, in pixels of the window.
    [[nodiscard]] QRect clientArea() const;
    /// The size of a window whose client area has this one.
    [[nodiscard]] QSize sizeAround(QSize client) const;

    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void tellDismissed();

    SkinButton *sysClose;
    SkinButton *sysMin;
    SkinButton *sysHelp;
    QString m_helpAnchor;
    SkinButton *m_defaultButton = nullptr;
    bool m_isOpen = false; ///< over its owner
};
