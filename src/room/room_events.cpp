#include "room/room_events.h"

#include "core/attribute_text.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/shared_state.h"
#include "link/clsXMLMessage.h"
#include "link/frmComms.h"
#include "room/colChatters.h"
#include "room/member_names.h"
#include "room/message_text.h"
#include "room/room_lifecycle.h"
#include "room/room_view.h"

#include <QScopedValueRollback>

RoomEvents::RoomEvents(SharedState &state, const Options &options, colChatters &chatters, frmComms &link,
                       RoomLifecycle &lifecycle, RoomView &view)
    : m_state(state),
      m_options(options),
      m_chatters(chatters),
      m_link(link),
      m_lifecycle(lifecycle),
      m_view(view)
{}

bool RoomEvents::isForThisRoom(const clsXMLMessage &message) const
{
    return m_state.CurrentRoomID != 0 && message.value(u"cid") == QString::number(m_state.CurrentRoomID);
}

void RoomEvents::AllowToJoinChat(const clsXMLMessage &message)
{
    const auto code = message.value(u"r");
    if (isForThisRoom(message) && code) {
        m_lifecycle.joinAnswered(code->toString(), message.value(u"tid").value_or(QStringView()).toString());
    }
}

void RoomEvents::ChannelClosed(const clsXMLMessage &message)
{
    if (isForThisRoom(message)) {
        m_view.AddMessage(QStringLiteral("The room you are in has been closed!"), MessageKind::Warning);
        m_lifecycle.ResetRoom();
    }
}

void RoomEvents::UpdateChannelContents(const clsXMLMessage &message)
{
    const auto code = message.value(u"r");
    const bool shown = m_lifecycle.ShownRoomID() == m_state.CurrentRoomID;
    if (!isForThisRoom(message) || !shown || !code) {
        return;
    }
    if (leadingInt32(*code) != 0) {
        m_view.AddMessage(u"Error in getting channel contents: " + oneLine(code->toString()),
                          MessageKind::Error);
        return;
    }
    for (const clsXMLMessage &entry : message.XMLMessage) {
        updateMember(entry);
    }
    m_view.DrawUserList();
}

void RoomEvents::updateMember(const clsXMLMessage &entry)
{
    const auto id = entry.value(u"id");
    if (!id) {
        return;
    }
    auto member = m_chatters.withId(*id);
    if (!member) {
        member = m_chatters.addUnknown(id->toString());
        member->Nickname = entry.value(u"nm").value_or(QStringView()).toString();
        if (m_options.ShowEnterLeave) {
            m_view.AddMessage(u"User " + displayName(*member, m_state) + u" has entered the room.",
                              MessageKind::Warning);
        }
    }
    const auto present = entry.value(u"p");
    if (!present) {
        return;
    }
    if (*present == u"1") {
        const qint32 status = leadingInt32(entry.value(u"s").value_or(QStringView()));
        const qint32 mood = leadingInt32(entry.value(u"m").value_or(QStringView()));
        member->Status = status > 0 ? status : member->Status;
        member->Mood = mood > 0 ? mood : member->Mood;
        return;
    }
    if (m_options.ShowEnterLeave) {
        m_view.AddMessage(u"User " + displayName(*member, m_state) + u" has left the room.",
                          MessageKind::Warning);
    }
    m_chatters.Remove(colChatters::keyOf(*id));
}

bool RoomEvents::isAcceptedAlways(const QString &id) const
{
    switch (m_options.AcceptMode) {
    case AcceptMode::Everyone:
        return true;
    case AcceptMode::AcceptList:
        return IsInList(m_state.lists.AcceptList, id);
    case AcceptMode::Contacts:
        return IsPyloxContact(m_state.lists, id);
    }
    return false;
}

/// Only the owner of the room is asked, and only for this room.
void RoomEvents::RequestingChatter(const clsXMLMessage &message)
{
    const auto id = message.value(u"id");
    const auto nickname = message.value(u"nm");
    const bool here = !message.value(u"cid") || isForThisRoom(message);
    if (!id || !nickname || !here || !m_state.IsRoomOwner || !m_state.InRoom) {
        return;
    }
    constexpr qint32 online = 11;
    constexpr qint32 indifferent = 26;
    const auto requester = m_chatters.Add(id->toString(), nickname->toString(), online, indifferent, false,
                                          {}, QDateTime::currentDateTime(), true, {});
    if (!requester) {
        return; // asks again while still listed
    }
    const QString name = displayName(*requester, m_state);
    m_view.AddMessage(u"User '" + name + u"' wants to join your chat room.", MessageKind::Warning);
    m_view.AddMessage(u"Accept or Reject '" + name + u"' from your pending list.", MessageKind::Warning);
    requester->AutoAccept = isAcceptedAlways(requester->ID);
    m_view.DrawUserList();
}

void RoomEvents::ReceiveMessage(const clsXMLMessage &message)
{
    const QString body = message.value(u"cnode").value_or(QStringView()).toString();
    const QString id = message.value(u"id").value_or(QStringView()).toString();
    if (IsInList(m_state.lists.IgnoreList, id)) {
        return;
    }
    if (message.value(u"tid").value_or(u"0") != u"0") {
        if (body.isEmpty()) {
            return; // would read as the user's own wish to write, whose window gets the keyboard
        }
        const auto sender = m_chatters.withId(id);
        m_view.ReceivePrivateMessage(id, sender ? displayName(*sender, m_state) : QStringLiteral("UNKNOWN"),
                                     body);
        return;
    }
    if (message.value(u"cid") && !isForThisRoom(message)) {
        return;
    }
    for (const QString &item : itemsOf(body)) {
        showItem(item, id);
    }
}

void RoomEvents::showItem(QStringView item, const QString &senderId)
{
    if (item.startsWith(u"<SMSG>")) {
        if (const auto sender = m_chatters.withId(senderId)) {
            m_view.AddMessage(item.sliced(6).toString(), MessageKind::Member, displayName(*sender, m_state),
                              {}, sender->Highlight);
        }
        return;
    }
    const qsizetype textEnd = item.indexOf(emotionTextEnd);
    if (item.startsWith(u"<EMOT>") && textEnd >= 0) {
        const QStringView attributes = item.sliced(textEnd + 1);
        m_view.AddMessage(item.sliced(6, textEnd - 6).toString(), MessageKind::Emotion,
                          GetAttribute(attributes, u" user=", {}), GetAttribute(attributes, u" tuser=", {}));
    }
}

void RoomEvents::ReceiveCommand(const clsXMLMessage &message)
{
    const auto command = message.value(u"cnode");
    const auto id = message.value(u"id");
    const bool here = !message.value(u"cid") || isForThisRoom(message);
    if (!command || !id || !here || !m_chatters.withId(*id) || !command->startsWith(u"DROPUSER")) {
        return;
    }
    const QString userId = GetAttribute(*command, u" userid=", {});
    const QString nickname = GetAttribute(*command, u" nick=", {});
    m_view.AddMessage(u"User '" + oneLine(nickname) + u"' has been kicked from the room!",
                      MessageKind::Error);
    if (userId == m_state.MyUserID) {
        m_lifecycle.LeaveRoom(false);
    }
}

void RoomEvents::ReceiveStatusMood(const clsXMLMessage &message)
{
    const auto id = message.value(u"id");
    const auto status = message.value(u"s");
    const auto mood = message.value(u"m");
    if (!id || !status || !mood) {
        return;
    }
    if (const auto member = m_chatters.withId(*id)) {
        member->Status = leadingInt32(*status);
        member->Mood = leadingInt32(*mood);
    }
    m_view.DrawUserList();
}

void RoomEvents::ReceiveNameChange(const clsXMLMessage &message)
{
    const auto id = message.value(u"id");
    const auto name = message.value(u"n");
    if (!id || !name || id->isEmpty()) {
        return;
    }
    for (ListedUser &contact : m_state.lists.PyloxContacts) {
        if (contact.id == *id) {
            contact.name = name->toString();
            break;
        }
    }
    if (*id == m_state.MyUserID) {
        if (const auto me = m_chatters.withId(*id)) {
            me->Nickname = name->toString();
        }
    }
    m_view.DrawUserList();
}

void RoomEvents::ReceiveUserOnline(const clsXMLMessage &message)
{
    const auto nickname = message.value(u"nick");
    if (nickname && m_options.ShowFriendOnline) {
        m_view.AddMessage(u"Your friend '" + oneLine(nickname->toString()) + u"' has just come online!",
                          MessageKind::FriendOnline);
    }
}

void RoomEvents::PyloxOffline()
{
    if (m_state.InRoom) {
        m_view.AddMessage(QStringLiteral("Currently Pylox is offline!"), MessageKind::Error);
        m_lifecycle.ResetRoom();
    }
}

void RoomEvents::PyloxOnline()
{
    m_view.AddMessage(QStringLiteral("Pylox is now online!"), MessageKind::MessengerOnline);
    if (m_askingContacts) {
        return; // each question waits inside the one before: one is enough
    }
    const QScopedValueRollback guard(m_askingContacts, true);
    m_link.GetPyloxUsers();
    m_view.DrawUserList();
}

void RoomEvents::ShutDown(bool silent)
{
    if (!silent) {
        m_view.AddMessage(QStringLiteral("The connection to Pylox has been closed!"), MessageKind::Error);
        m_lifecycle.ResetRoom();
    }
}
