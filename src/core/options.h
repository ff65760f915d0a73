#pragma once

#include <QtGlobal>

/// Whose requests to join the owner's room are accepted without asking.
enum class AcceptMode : quint8
{
    Everyone = 1,
    AcceptList = 2,
    Contacts = 3
};

/// The user's options, with the values that hold until a file says otherwise.
struct Options
{
    bool ShowEnterLeave = true;                        ///< post a notice when a member enters or leaves
    bool ShowFriendOnline = true;                      ///< post a notice when a contact comes online
    enum AcceptMode AcceptMode = AcceptMode::Everyone; ///< any other number: the owner decides each time
};
