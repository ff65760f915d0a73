#pragma once

#include "link/room_event_handler.h"

#include <QStringView>

class RoomLifecycle;
class RoomView;
class colChatters;
class frmComms;
struct Options;
struct SharedState;

/// Brings what the messenger tells into the room: the members, the user lists and the board.
class RoomEvents final : public RoomEventHandler
{
public:
    RoomEvents(SharedState &state, const Options &options, colChatters &chatters, frmComms &link,
               RoomLifecycle &lifecycle, RoomView &view);

    void UpdateChannelContents(const clsXMLMessage &message) override;
    void AllowToJoinChat(const clsXMLMessage &message) override;
    void RequestingChatter(const clsXMLMessage &message) override;
    void ChannelClosed(const clsXMLMessage &message) override;
    void ReceiveMessage(const clsXMLMessage &message) override;
    void ReceiveCommand(const clsXMLMessage &message) override;
    void ReceiveStatusMood(const clsXMLMessage &message) override;
    void ReceiveUserOnline(const clsXMLMessage &message) override;
    void ReceiveNameChange(const clsXMLMessage &message) override;
    void PyloxOffline() override;
    void PyloxOnline() override;
    void ShutDown(bool silent) override;

private:
    [[nodiscard]] bool isForThisRoom(const clsXMLMessage &message) const;
    [[nodiscard]] bool isAcceptedAlways(const QString &id) const;
    void updateMember(const clsXMLMessage &entry);
    void showItem(QStringView item, const QString &senderId);

    SharedState &m_state;
    const Options &m_options;
    colChatters &m_chatters;
    frmComms &m_link;
    RoomLifecycle &m_lifecycle;
    RoomView &m_view;
    bool m_askingContacts = false;
};
