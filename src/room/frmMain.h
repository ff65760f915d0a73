#pragma once

#include "core/chat_colours.h"
#include "emotions/colEmotions.h"
#include "platform/image_list.h"
#include "room/admission.h"
#include "room/banner.h"
#include "room/colChatters.h"
#include "room/compose_box.h"
#include "room/composing.h"
#include "room/exit_road.h"
#include "room/frame_pacer.h"
#include "room/member_list.h"
#include "room/member_menu.h"
#include "room/message_board.h"
#include "room/room_controls.h"
#include "room/room_events.h"
#include "room/room_lifecycle.h"
#include "room/room_view.h"
#include "room/session_commands.h"
#include "skin/skinned_window.h"

#include <QPointer>

#include <functional>

class CommandLine;
class EmoticonFile;
class Prompts;
class QMenu;
class QModelIndex;
class frmEmotShow;
class SavedSettings;
class frmComms;
struct Options;
struct SharedState;

/// Where the room window has its looks from. All of them must stay.
struct RoomLooks
{
    SkinInUse &skin;
    LoadedWindows &windows;
    EmoticonFile &emoticons;
    SavedSettings &saved;  ///< has been loaded
    BannerSource banner{}; ///< of nothing
};

/// The room window: it owns its controls and the classes that do the work, and passes on what the user does.
class frmMain final : public SkinnedWindow, public RoomView
{
    Q_OBJECT

public:
    frmMain(SharedState &state, Options &options, frmComms &link, Prompts &prompts,
            const CommandLine &commandLine, const RoomLooks &looks);
    ~frmMain() override;

    /// Puts the new skin in the place of the one in use and wears it; the old one stays if the new cannot be
    /// read.
    void DoSkinChange() override;

    void AddMessage(const QString &text, MessageKind kind, const QString &name = {},
                    const QString &otherName = {}, bool highlight = false) override;
    void clearBoard() override;
    void DrawUserList() override;
    void setRoomCaption(const QString &caption) override;
    void ReceivePrivateMessage(const QString &id, const QString &name, const QString &body) override;

    // What the other windows need of the room.
    [[nodiscard]] RoomLifecycle &lifecycle() { return m_lifecycle; }
    [[nodiscard]] MessageBoard &messages() { return m_messages; }
    /// The box that the user writes in.
    [[nodiscard]] const QLineEdit &rtfText() const { return *m_controls.rtfText; }
    [[nodiscard]] ComposeFont composeFont() const { return m_composeBox.font(); }
    /// The options have changed.
    void takeOptions();

Q_SIGNALS:
    /// The user wants to browse the rooms.
    void directoryRequested();
    /// The user wants to see the options.
    void optionsRequested();
    /// A private message for the window of that person, in items; an empty body only opens it.
    void privateMessageReceived(const QString &id, const QString &name, const QString &body);
    /// The user wants to read how it is used.
    void helpRequested(const QString &anchor);
    /// The user wants to read about emoticons.
    void emoticonHelpRequested();
    /// The user has clicked on an address on the board; it is a stranger's.
    void addressActivated(const QUrl &address);
    /// The window has said goodbye to the room and the messenger; the program may end.
    void exited();

protected:
    void SetupFormSkin() override;
    void layOut() override;
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void connectControls();
    void takeComposeLook();
    void fillEmotions();
    void fillIcons();
    [[nodiscard]] MemberLooks memberLooks() const;
    void activateFirst();
    void send();
    void sendChosenEmotion();
    void sendEmotion(const QString &name);
    void switchEmotions();
    void describeEmotion(const QString &name);
    [[nodiscard]] const clsChatters *selectedMember() const;
    void showMenu();
    [[nodiscard]] QMenu *makeMenu(const QString &title);
    QAction *addEntry(QMenu &menu, const QString &text, const std::function<void(frmMain &)> &act);
    void showEmoticons();
    void takeEmoticon(const QString &key);
    void showMemberMenu(const QModelIndex &row, QPoint globalPlace);
    void showMemberMenuByKey();
    [[nodiscard]] bool mayClose() const;

    SharedState &m_state;
    Options &m_options;
    frmComms &m_link;
    Prompts &m_prompts;
    const CommandLine &m_commandLine;
    RoomLooks m_looks;

    RoomControls m_controls;
    Banner m_banner;
    ComposeBox m_composeBox;
    ChatColours m_skinColours;
    ImageList imgList;
    colEmotions Emotions;
    MessageBoard m_messages;
    SessionCommands m_session;
    colChatters m_chatters;
    RoomLifecycle m_lifecycle;
    RoomEvents m_events;
    Admission m_admission;
    MemberActions m_memberActions;
    Composing m_composing;
    ExitRoad m_exitRoad;
    FramePacer m_memberFrames{
        [this] { drawMemberList(*m_controls.grdUserList, m_chatters, m_state, memberLooks()); }};
    QPointer<frmEmotShow> m_palette; ///< while it is open
    bool m_shownBefore = false;
    bool m_exited = false;
};
