#pragma once

#include "core/user_lists.h"

#include <QString>

/// Who the user is, which room is current, and the user lists: what all windows share. It lives for the whole
/// run. Every wait for the messenger lets events run, so after a wait any of it may have changed.
struct SharedState
{
    QString MyUserID;
    QString MyNickname;
    qint32 MyStatus = 0;
    qint32 MyMood = 0;

    qint32 CurrentRoomID = 0; ///< the room the user is in or asks to join; 0 is no room
    bool IsRoomOwner = false; ///< the user created the current room
    bool InRoom = false;      ///< the user has been admitted to the current room
    QString RoomCategory;     ///< the label in front of the room's name
    QString RoomName;

    UserLists lists;
};
