#pragma once

#include "controls/titled_window.h"

#include <QGridLayout>

#include <optional>

class Prompts;
class QCheckBox;
class QLabel;
class QLineEdit;

/// What the user wants the new room to be.
struct RoomDetails
{
    QString name; ///< as typed
    bool isPrivate = false;
};

/// Asks for the name of a new room and whether it is private.
class frmNewChat final : public TitledWindow
{
    Q_OBJECT

public:
    frmNewChat(const WindowDress &dress, Prompts &prompts, QWidget *owner);

    /// Shows the dialog over its owner until the user has done with it; events go on meanwhile. None when it
    /// was cancelled or closed.
    [[nodiscard]] std::optional<RoomDetails> GetRoomDetails();

protected:
    void SetupFormSkin() override;
    void layOut() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void placeControls();
    void takeText(const QString &text);
    void confirm();

    Prompts &m_prompts;
    QLabel *lblRoom;
    QLineEdit *txtRoom;
    QLabel *lblPrivate;
    QCheckBox *chkPrivate;
    SkinButton *smdOk;
    SkinButton *smdCancel;
    QGridLayout m_grid; ///< within the borders; the window itself has no layout
    bool m_ok = false;
};
