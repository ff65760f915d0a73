#pragma once

#include "controls/titled_window.h"

#include <array>

class Prompts;
class QRadioButton;
class QTreeWidget;
class QTreeWidgetItem;
class SavedSettings;
struct UserLists;

/// The dialog of the accept list and the ignore list. What is added and removed in it changes the shared
/// lists at once; only its OK saves them.
class frmIgnore final : public TitledWindow
{
    Q_OBJECT

public:
    frmIgnore(const WindowDress &dress, UserLists &lists, SavedSettings &saved, Prompts &prompts,
              QWidget *owner);

    /// Shows the list with this letter until the dialog is closed; events go on meanwhile. The choice of the
    /// list stays where it is: on the ignore list, "I", when the dialog is new.
    void ShowList(char16_t listCode);

protected:
    void SetupFormSkin() override;
    void layOut() override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void setUpList();
    void connectControls();
    void FillList(char16_t listCode);
    [[nodiscard]] char16_t chosenList() const;
    [[nodiscard]] QTreeWidgetItem *rowOf(const QString &id) const;
    void askForUser();
    void addUser(const QString &id, const QString &name);
    void removeUser();
    void save();

    WindowDress m_dress;
    UserLists &m_lists;
    SavedSettings &m_saved;
    Prompts &m_prompts;

    std::array<QRadioButton *, 2> optType;
    QTreeWidget *lvList;
    SkinButton *smdAdd;
    SkinButton *smdRemove;
    SkinButton *smdOk;
    SkinButton *smdCancel;
};
