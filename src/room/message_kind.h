#pragma once

/// What a line on the message board is.
enum class MessageKind
{
    Own = 0,
    Member = 1,
    Emotion = 2,
    Normal = 3, ///< notices of the room …
    Warning = 4,
    Error = 5,
    FriendOnline = 6, ///< … and of the messenger
    MessengerOffline = 7,
    MessengerOnline = 8,
};
