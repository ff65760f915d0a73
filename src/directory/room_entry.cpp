#include "directory/room_entry.h"

#include "core/numbers.h"
#include "core/shared_state.h"
#include "link/frmComms.h"
#include "platform/prompts.h"
#include "room/room_lifecycle.h"

#include <QPointer>
#include <QWidget>

RoomEntry::RoomEntry(QWidget &directory, SharedState &state, frmComms &link, RoomLifecycle &lifecycle,
                     Prompts &prompts)
    : m_directory(directory), m_state(state), m_link(link), m_lifecycle(lifecycle), m_prompts(prompts)
{}

/// False when the user wants to stay in the room, or has closed the directory.
bool RoomEntry::leave(bool confirm)
{
    const QPointer directory(&m_directory);
    m_lifecycle.endDeparture();
    if (m_state.IsRoomOwner) {
        m_lifecycle.CloseRoom(confirm);
    } else {
        m_lifecycle.LeaveRoom(confirm);
    }
    return directory != nullptr && directory->isVisible() && m_lifecycle.ShownRoomID() == 0 &&
           !m_link.isShutDown();
}

bool RoomEntry::join(const RoomToJoin &room)
{
    if (!leave(false)) {
        return false;
    }
    m_lifecycle.headFor(room.id, room.category, room.name);
    const QPointer directory(&m_directory);
    SharedState &state = m_state; // which outlasts the directory
    const JoinRequest request = m_link.RequestJoinChannel();
    if (request == JoinRequest::Sent) {
        return state.CurrentRoomID == room.id; // it may have been closed meanwhile
    }
    if (directory != nullptr) {
        tell(request == JoinRequest::RoomFull
                 ? QStringLiteral("The room you are trying to join is full!  Please try again.")
                 : QStringLiteral("Could not send request to join room!  Please try again."));
    }
    state.InRoom = false;
    state.CurrentRoomID = 0;
    return false;
}

/// A room that has been created is taken even when the directory has been closed: nobody else could close it.
bool RoomEntry::create(const RoomToCreate &room)
{
    if (!leave(true)) {
        return false;
    }
    const QString trouble = QStringLiteral("Trouble creating room!  Please try again.");
    const QPointer directory(&m_directory);
    const Reply reply = m_link.CreateChannel(room.categoryKey, room.name, room.isPrivate);
    if (directory == nullptr) {
        return false;
    }
    const clsXMLMessage *answer = reply.element();
    if (answer == nullptr) {
        tell(trouble);
        return false;
    }
    if (answer->MsgName != u"ACC") {
        return false;
    }
    const auto value = [&](QStringView name) { return answer->value(name).value_or(QStringView()); };
    const QString code = value(u"r").toString();
    const qint32 roomId = leadingInt32(value(u"cid"));
    if (code == u"0" && roomId != 0) {
        m_state.CurrentRoomID = roomId;
        m_state.IsRoomOwner = true;
        m_state.InRoom = true;
        m_state.RoomCategory = room.category;
        m_state.RoomName = room.name;
        return true;
    }
    if (code != u"109") {
        tell(trouble % u" R=" % code);
    }
    return false;
}

void RoomEntry::tell(const QString &text)
{
    if (m_directory.isVisible() && !m_link.isShutDown()) {
        m_prompts.tell(text, QStringLiteral("Room Error"), PromptIcon::Stop);
    }
}
