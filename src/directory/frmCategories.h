#pragma once

#include "controls/titled_window.h"
#include "directory/directory_model.h"
#include "directory/frmNewChat.h"
#include "directory/room_entry.h"

#include <QGridLayout>
#include <QSet>

#include <functional>

class DirectoryTree;
class QLineEdit;
class SkinFrame;

/// The room directory: shows the categories and asks for the rooms of the one that is selected. The user
/// joins a room or creates one, which closes it.
class frmCategories final : public TitledWindow
{
    Q_OBJECT

public:
    frmCategories(const WindowDress &dress, SharedState &state, frmComms &link, RoomLifecycle &lifecycle,
                  Prompts &prompts, QWidget *owner);

    /// Opens the directory over its owner, and asks for the categories.
    void Browse();

Q_SIGNALS:
    /// The user has done with the directory, and no way into a room is under way any more. The shared state
    /// may name another room now.
    void left();

protected:
    void SetupFormSkin() override;
    void layOut() override;
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void placeControls();
    void connectControls();

    void loadCategories();
    void loadRooms();
    void askForRooms(DirectoryNode &category);
    [[nodiscard]] bool addRooms(const clsXMLMessage &list);

    void takeSelection();
    void enableButtons();
    void chooseByKey();
    void chooseByDoubleClick();
    void openOrClose();
    void filter();
    void keepOpen(const QModelIndex &category, bool isOpen);
    void showBusy();

    void join();
    void create();
    [[nodiscard]] std::optional<RoomDetails> askForDetails();
    void enter(const std::function<bool()> &way);
    void tellLeft();
    [[nodiscard]] DirectoryNode *selected() const;

    WindowDress m_dress;
    frmComms &m_link;
    Prompts &m_prompts;
    RoomEntry m_entry;
    DirectoryModel m_model;
    QLineEdit *txtFilter;
    SkinFrame *skfCats; ///< round the tree
    DirectoryTree *tvCats;
    SkinButton *smdOk;
    SkinButton *smdCreate;
    SkinButton *smdCancel;
    QGridLayout m_grid;                   ///< within the borders; the window itself has no layout
    QPointer<frmNewChat> m_newChat;       ///< while it is shown
    QSet<const DirectoryNode *> m_opened; ///< the categories that stand open without a filter
    bool m_isLoading = false;             ///< a list is under way
    bool m_isEntering = false;            ///< the user is on the way into a room
    bool m_hasLeft = false;               ///< the user has done with it
};
