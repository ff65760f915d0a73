#include "room/room_lifecycle.h"

#include "core/command_line.h"
#include "core/shared_state.h"
#include "link/frmComms.h"
#include "platform/prompts.h"
#include "room/colChatters.h"
#include "room/message_text.h"
#include "room/room_view.h"

#include <QScopedValueRollback>

#include <utility>

RoomLifecycle::RoomLifecycle(SharedState &state, colChatters &chatters, frmComms &link, RoomView &view,
                             Prompts &prompts)
    : m_state(state), m_chatters(chatters), m_link(link), m_view(view), m_prompts(prompts)
{}

bool RoomLifecycle::joinFrom(const CommandLine &commandLine)
{
    const auto roomId = commandLine.roomId();
    if (!roomId || m_state.CurrentRoomID != 0) {
        return true; // the user has been quicker
    }
    headFor(*roomId, QStringLiteral("Invited to join"), commandLine.roomName());
    if (m_link.RequestJoinChannel() == JoinRequest::Sent) {
        EnterRoom();
        return true;
    }
    if (m_link.isShutDown() || m_state.CurrentRoomID != *roomId) {
        return false;
    }
    m_prompts.tell(QStringLiteral("Could not send request to join room!  Please try again."),
                   QStringLiteral("Room Error"), PromptIcon::Stop);
    if (m_state.CurrentRoomID == *roomId && !m_state.InRoom) { // else another way into a room was found
        ResetRoom();
    }
    return false;
}

void RoomLifecycle::headFor(qint32 roomId, const QString &category, const QString &name)
{
    m_earlyAnswer = {};
    m_state.CurrentRoomID = roomId;
    m_state.IsRoomOwner = false;
    m_state.RoomCategory = category;
    m_state.RoomName = name;
}

void RoomLifecycle::EnterRoom()
{
    const qint32 roomId = m_state.CurrentRoomID;
    const JoinAnswer answer = std::exchange(m_earlyAnswer, {});
    if (m_shownRoomId == roomId) {
        return;
    }
    if (m_shownRoomId != 0) {
        m_view.clearBoard();
        m_chatters.RemoveAll();
        m_shownRoomId = 0;
    }
    if (roomId != 0) {
        const QString title = oneLine(m_state.RoomCategory + u" - " + m_state.RoomName);
        const bool owner = m_state.IsRoomOwner;
        m_shownRoomId = roomId;
        m_chatters.Add(m_state.MyUserID, m_state.MyNickname, m_state.MyStatus, m_state.MyMood, owner, {},
                       QDateTime::currentDateTime(), !owner, {});
        m_view.setRoomCaption(title);
        if (owner) {
            m_view.AddMessage(u"Created room: " + title, MessageKind::Normal);
        } else {
            m_view.AddMessage(u"Requesting to join room: " + title, MessageKind::Normal);
            m_view.AddMessage(QStringLiteral("Waiting for server response...."), MessageKind::Normal);
        }
    }
    m_view.DrawUserList();
    if (roomId != 0 && answer.roomId == roomId) {
        joinAnswered(answer.code, answer.toUserId);
    }
}

void RoomLifecycle::joinAnswered(const QString &code, const QString &toUserId)
{
    if (m_shownRoomId != m_state.CurrentRoomID) {
        m_earlyAnswer = {m_state.CurrentRoomID, code, toUserId};
        return;
    }
    if (code == u"0") {
        if (const auto me = m_chatters.withId(m_state.MyUserID)) {
            me->Pending = false;
            me->ToUserID = toUserId;
        }
        return;
    }
    ResetRoom();
    const QString reason = code == u"200" ? QStringLiteral("Rejected from joining room: ")
                                          : QStringLiteral("Error to join room: ");
    m_view.AddMessage(reason + oneLine(code), MessageKind::Error);
}

void RoomLifecycle::LeaveRoom(bool confirm)
{
    depart({QStringLiteral("Do you really wish to leave the current room you are in?"),
            QStringLiteral("Leave Room"), &frmComms::LeaveChannel,
            QStringLiteral("You have successfully left the Room!"),
            QStringLiteral("You have left the room but there was a server error!")},
           confirm);
}

void RoomLifecycle::CloseRoom(bool confirm)
{
    depart({QStringLiteral("Do you really wish to close your room?"), QStringLiteral("Close Room"),
            &frmComms::DestroyChannel, QStringLiteral("Your room was closed successfully!"),
            QStringLiteral("Your room is closed but there was a server error!")},
           confirm);
}

/// One question at a time. While it stands, a departure that needs no answer goes its way.
bool RoomLifecycle::isConfirmed(const Departure &departure)
{
    if (m_asking) {
        return false;
    }
    const QScopedValueRollback guard(m_asking, true);
    return m_prompts.ask(departure.question, departure.caption, PromptIcon::Question, PromptButtons::YesNo) ==
           PromptAnswer::Yes;
}

void RoomLifecycle::depart(const Departure &departure, bool confirm)
{
    const qint32 roomId = m_shownRoomId;
    if (roomId == 0 || m_departing || (confirm && !isConfirmed(departure))) {
        return;
    }
    if (m_shownRoomId != roomId || m_departing) {
        return; // gone, or on the way out, while the question stood
    }
    const QScopedValueRollback guard(m_departing, true);
    const bool done = (m_link.*departure.request)();
    if (m_shownRoomId != roomId) {
        return; // closed or left while the answer was awaited, which has been told
    }
    m_view.AddMessage(done ? departure.success : departure.failure,
                      done ? MessageKind::Warning : MessageKind::Error);
    ResetRoom();
}

void RoomLifecycle::endDeparture()
{
    if (m_departing) {
        ResetRoom();
    }
}

void RoomLifecycle::ResetRoom()
{
    m_shownRoomId = 0;
    m_earlyAnswer = {};
    m_state.InRoom = false;
    m_state.CurrentRoomID = 0;
    m_chatters.RemoveAll();
    m_view.DrawUserList();
    m_view.setRoomCaption({});
}
