#pragma once

#include "controls/titled_window.h"

class QImage;
class QScrollArea;

/// A window that shows a skin at work before, and beside, the windows that wear it: its own border, and the
/// sheet of everything that the skin brings, live. Ctrl+R reads the skin file again.
class SkinGallery final : public TitledWindow
{
    Q_OBJECT

public:
    SkinGallery(SkinInUse &skin, LoadedWindows &windows);

Q_SIGNALS:
    void closed();
    /// The author has changed the file.
    void reloadRequested();

protected:
    void SetupFormSkin() override;
    void layOut() override;
    void closeEvent(QCloseEvent *event) override;

private:
    QScrollArea *m_view;
};

/// The whole of a skin as one picture: a window at two sizes, cut to its shape, and the sheet. In the device
/// pixels of the screen that the program runs on.
[[nodiscard]] QImage skinPreview(SkinInUse &skin);
