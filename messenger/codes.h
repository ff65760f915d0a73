#pragma once

#include <QtGlobal>

namespace messenger {

/// What became of a request: the "r" of its reply. The numbers are part of the protocol.
enum class Code : qint32
{
    Success = 0,
    NoSuchRoom = 1,
    NotAllowed = 2,
    NoSuchUser = 3,
    BadName = 4,
    TooMany = 5,
    BadText = 6,
    Offline = 9,
    RoomFull = 109,
    Rejected = 200,
};

} // namespace messenger
