#pragma once

#include <QDateTime>
#include <QString>

/// One person in the room: the user, a member, or somebody who asked to join and waits for approval.
struct clsChatters
{
    QString ID; ///< never changes
    QString Nickname;
    QString OriginalName; ///< the nickname that the record was made with
    QDateTime Joined;     ///< when the record was made, local time
    QString InvitedBy;
    qint32 Status = 0;
    qint32 Mood = 0;
    bool Owner = false;
    bool Pending = false;
    QString ToUserID; ///< own record only: whom to tell of the joining
    bool AutoAccept = false;
    bool Highlight = false;
};
