#pragma once

#include <QList>
#include <QString>

#include <optional>

class RoomView;
class colChatters;
class frmComms;
struct SharedState;
struct clsChatters;

/// What can be done with a member.
enum class MemberAction
{
    UserDetails,
    AutoAccept,
    Ignore,
    Drop,
    PrivateMessage,
    Highlight,
    AddToMessenger,
    Accept,
    Reject,
    Separator, ///< between entries
};

struct MemberMenuEntry
{
    MemberAction action = MemberAction::Separator;
    QString text;
    bool enabled = true;
    std::optional<bool> checked; ///< none for an entry without a check mark
};

/// The menu of one member. It names the member by position and id, since members come and go while it is
/// open.
struct MemberMenu
{
    QString title;
    qsizetype position = 0;
    QString id;
    QList<MemberMenuEntry> entries; ///< none: no menu
};

/// The menu of the member at the position. None for the user's own row, and for somebody who waits for
/// approval unless the user owns the room.
[[nodiscard]] MemberMenu memberMenu(const colChatters &chatters, qsizetype position,
                                    const SharedState &state);

/// Does what the menu offers.
class MemberActions
{
public:
    MemberActions(SharedState &state, colChatters &chatters, frmComms &link, RoomView &view);

    /// Nothing happens when another member, or nobody, stands at the menu's position by now. A request that
    /// fails leaves everything as it is.
    void perform(MemberAction action, const MemberMenu &menu);

private:
    void accept(const QString &id, bool reject);

    SharedState &m_state;
    colChatters &m_chatters;
    frmComms &m_link;
    RoomView &m_view;
};
