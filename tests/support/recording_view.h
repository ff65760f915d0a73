#pragma once

#include "room/room_view.h"

#include <QStringList>

/// Keeps what the room shows: notices as "kind text", messages as "kind name[, other]: text".
class RecordingView final : public RoomView
{
public:
    void AddMessage(const QString &text, MessageKind kind, const QString &name, const QString &otherName,
                    bool highlight) override
    {
        const QString sender = name.isEmpty() ? QString() : QString(name + u": ");
        const QString other = otherName.isEmpty() ? QString() : QString(u"to " + otherName + u": ");
        lines += QString::number(static_cast<int>(kind)) + (highlight ? u"! " : u" ") + sender + other + text;
    }
    void clearBoard() override { lines.clear(); }
    void DrawUserList() override { ++draws; }
    void setRoomCaption(const QString &text) override { caption = text; }
    void ReceivePrivateMessage(const QString &id, const QString &name, const QString &body) override
    {
        whispers += id + u' ' + name + u' ' + body;
    }

    QStringList lines;
    QStringList whispers;
    QString caption;
    int draws = 0;
};
