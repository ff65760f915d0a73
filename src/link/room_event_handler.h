#pragma once

class clsXMLMessage;

/// What the messenger tells without being asked: one operation per event. An element is valid during the
/// call; after a wait inside the call it still is. A handler that misses an attribute it needs returns, and
/// the next element of the message is handled.
class RoomEventHandler
{
public:
    RoomEventHandler() = default;
    RoomEventHandler(const RoomEventHandler &) = delete;
    RoomEventHandler &operator=(const RoomEventHandler &) = delete;
    virtual ~RoomEventHandler() = default;

    virtual void UpdateChannelContents(const clsXMLMessage &message) = 0;
    virtual void AllowToJoinChat(const clsXMLMessage &message) = 0;
    virtual void RequestingChatter(const clsXMLMessage &message) = 0;
    virtual void ChannelClosed(const clsXMLMessage &message) = 0;
    virtual void ReceiveMessage(const clsXMLMessage &message) = 0;
    virtual void ReceiveCommand(const clsXMLMessage &message) = 0;
    virtual void ReceiveStatusMood(const clsXMLMessage &message) = 0;
    virtual void ReceiveUserOnline(const clsXMLMessage &message) = 0;
    virtual void ReceiveNameChange(const clsXMLMessage &message) = 0;
    virtual void PyloxOffline() = 0;
    virtual void PyloxOnline() = 0;

    /// The connection to the messenger has ended; silent when the user is not to be told.
    virtual void ShutDown(bool silent) = 0;
};
