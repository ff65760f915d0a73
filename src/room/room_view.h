#pragma once

#include "room/message_kind.h"

#include <QString>

/// What the room's logic shows of itself: the board, the member list, the caption. The window implements it.
class RoomView
{
public:
    RoomView() = default;
    RoomView(const RoomView &) = delete;
    RoomView &operator=(const RoomView &) = delete;
    virtual ~RoomView() = default;

    /// Adds a message at the end of the board. The name is the sender's display name, the other name is whom
    /// an emotion is about; notices have neither.
    virtual void AddMessage(const QString &text, MessageKind kind, const QString &name = {},
                            const QString &otherName = {}, bool highlight = false) = 0;
    virtual void clearBoard() = 0;

    /// Shows the members as they are now.
    virtual void DrawUserList() = 0;

    /// An empty text stands for no room.
    virtual void setRoomCaption(const QString &caption) = 0;

    /// Shows a private message in the sender's own window; an empty body only opens it.
    virtual void ReceivePrivateMessage(const QString &id, const QString &name, const QString &body) = 0;
};
