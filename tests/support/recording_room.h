#pragma once

#include "link/clsXMLMessage.h"
#include "link/room_event_handler.h"

#include <QStringList>

#include <functional>

/// Keeps the names of the events that reach it.
class RecordingRoom final : public RoomEventHandler
{
public:
    void UpdateChannelContents(const clsXMLMessage &message) override { note(message.MsgName); }
    void AllowToJoinChat(const clsXMLMessage &message) override { note(message.MsgName); }
    void RequestingChatter(const clsXMLMessage &message) override { note(message.MsgName); }
    void ChannelClosed(const clsXMLMessage &message) override { note(message.MsgName); }
    void ReceiveMessage(const clsXMLMessage &message) override { note(message.MsgName); }
    void ReceiveCommand(const clsXMLMessage &message) override { note(message.MsgName); }
    void ReceiveStatusMood(const clsXMLMessage &message) override { note(message.MsgName); }
    void ReceiveUserOnline(const clsXMLMessage &message) override { note(message.MsgName); }
    void ReceiveNameChange(const clsXMLMessage &message) override { note(message.MsgName); }
    void PyloxOffline() override { note(u"OFFLINE"); }
    void PyloxOnline() override { note(u"ONLINE"); }
    void ShutDown(bool silent) override { note(silent ? u"silent shut-down" : u"shut-down"); }

    QStringList events;
    std::function<void(QStringView name)> onEvent; ///< what the handler does besides

private:
    void note(QStringView name)
    {
        events.append(name.toString());
        if (onEvent) {
            onEvent(name);
        }
    }
};
