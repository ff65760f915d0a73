#pragma once

#include "controls/titled_window.h"

class QLineEdit;

/// Asks for a user who is to be put on a list by hand.
class frmAddUser final : public TitledWindow
{
    Q_OBJECT

public:
    frmAddUser(const WindowDress &dress, QWidget *owner);

Q_SIGNALS:
    /// The user has said who: the id has one to ten characters, the name may be empty.
    void userChosen(const QString &id, const QString &name);

protected:
    void SetupFormSkin() override;
    void layOut() override;

private:
    [[nodiscard]] QString id() const;
    [[nodiscard]] QSize clientSize() const;
    void accept();

    QWidget *m_fields;
    QLineEdit *txtId;
    QLineEdit *txtName;
    SkinButton *smdOk;
    SkinButton *smdCancel;
};
