#pragma once

#include "messenger/world.h"

namespace messenger {

/// A room that is there from the start, and the host who owns it.
struct HostedRoom
{
    QString hostId;
    QString hostName;
    RoomPlan plan; ///< its owner is the host
};

inline constexpr qint32 lobbyCid = 1;

[[nodiscard]] QList<Category> defaultCategories();

/// Numbered from 1 in this order; the lobby is the first.
[[nodiscard]] QList<HostedRoom> defaultRooms();

/// The users that clients are when no users file is given.
[[nodiscard]] QList<User> defaultUsers();

} // namespace messenger
