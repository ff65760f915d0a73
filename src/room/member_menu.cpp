#include "room/member_menu.h"

#include "link/frmComms.h"
#include "room/colChatters.h"
#include "room/member_names.h"
#include "room/message_text.h"
#include "room/room_view.h"

namespace {

QList<MemberMenuEntry> pendingEntries()
{
    return {{MemberAction::Accept, QStringLiteral("Accept User"), true, {}},
            {MemberAction::Reject, QStringLiteral("Reject User"), true, {}},
            {},
            {MemberAction::UserDetails, QStringLiteral("User Details"), true, {}}};
}

QList<MemberMenuEntry> userEntries(const clsChatters &member, const SharedState &state)
{
    return {{MemberAction::UserDetails, QStringLiteral("User Details"), true, {}},
            {},
            {MemberAction::AutoAccept, QStringLiteral("Auto Accept User"), true, {}},
            {MemberAction::Ignore, QStringLiteral("Ignore User"), true, {}},
            {MemberAction::Drop, QStringLiteral("Drop User"), state.IsRoomOwner, {}},
            {},
            {MemberAction::PrivateMessage, QStringLiteral("Private Message"), true, {}},
            {MemberAction::Highlight, QStringLiteral("Highlight Messages"), true, member.Highlight},
            {},
            {MemberAction::AddToMessenger,
             QStringLiteral("Add User to Pylox"),
             !IsPyloxContact(state.lists, member.ID),
             {}}};
}

} // namespace

MemberMenu memberMenu(const colChatters &chatters, qsizetype position, const SharedState &state)
{
    const auto member = chatters.Item(position);
    if (member == nullptr || member->ID == state.MyUserID) {
        return {};
    }
    if (!member->Pending) {
        return {QString(u"User #" % oneLine(member->ID)), position, member->ID, userEntries(*member, state)};
    }
    if (!state.IsRoomOwner) {
        return {};
    }
    return {QStringLiteral("Pending User Menu"), position, member->ID, pendingEntries()};
}

MemberActions::MemberActions(SharedState &state, colChatters &chatters, frmComms &link, RoomView &view)
    : m_state(state), m_chatters(chatters), m_link(link), m_view(view)
{}

void MemberActions::perform(MemberAction action, const MemberMenu &menu)
{
    const auto member = m_chatters.Item(menu.position);
    if (member == nullptr || member->ID != menu.id) {
        return;
    }
    const QString name = displayName(*member, m_state);
    switch (action) {
    case MemberAction::UserDetails:
        m_link.UserDetails(member->ID);
        break;
    case MemberAction::AutoAccept:
        AddToList(m_state.lists, u'A', member->ID, name);
        break;
    case MemberAction::Ignore:
        AddToList(m_state.lists, u'I', member->ID, name);
        break;
    case MemberAction::Drop:
        m_link.DropUser(member->ID, member->Nickname);
        break;
    case MemberAction::PrivateMessage:
        m_view.ReceivePrivateMessage(member->ID, name, {});
        break;
    case MemberAction::Highlight:
        member->Highlight = !member->Highlight;
        break;
    case MemberAction::AddToMessenger:
        m_link.InviteUserToPylox(member->ID, member->Nickname);
        break;
    case MemberAction::Accept:
        accept(member->ID, false);
        break;
    case MemberAction::Reject:
        accept(member->ID, true);
        break;
    case MemberAction::Separator:
        break;
    }
}

/// The answer is waited for; meanwhile the member may have gone, or another room may have been entered.
void MemberActions::accept(const QString &id, bool reject)
{
    const qint32 roomId = m_state.CurrentRoomID;
    if (!m_link.AllowJoinChannel(id, reject) || m_state.CurrentRoomID != roomId) {
        return;
    }
    const auto member = m_chatters.withId(id);
    if (member == nullptr || !member->Pending) {
        return;
    }
    const QString name = displayName(*member, m_state);
    if (reject) {
        m_chatters.Remove(colChatters::keyOf(id));
        m_view.AddMessage(QString(u"User " % name % u" has been rejected from the room."),
                          MessageKind::Normal);
    } else {
        member->Pending = false;
        m_view.AddMessage(QString(u"User " % name % u" has just joined the room."), MessageKind::Normal);
    }
    m_view.DrawUserList();
}
