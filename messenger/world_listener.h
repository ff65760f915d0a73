#pragma once

#include "messenger/codes.h"

#include <QString>

namespace messenger {

class Room;
struct User;

/// Hears what happens in the world, after it has happened. A listener never changes the world from inside
/// these calls: it notes what it will do.
class WorldListener
{
public:
    WorldListener() = default;
    WorldListener(const WorldListener &) = delete;
    WorldListener &operator=(const WorldListener &) = delete;
    virtual ~WorldListener() = default;

    /// Somebody waits for the answer of the room's owner.
    virtual void asked(const Room &, const User &) {}
    virtual void answered(const Room &, const User &, Code) {}
    virtual void entered(const Room &, const User &) {}
    virtual void left(const Room &, const User &) {}
    /// Somebody who had asked, and perhaps was admitted, is gone without having entered.
    virtual void gaveUp(const Room &, const User &) {}
    /// The room still has its people. The one who closed it knows already; it may be nobody.
    virtual void closed(const Room &, const QString & /*closedBy*/) {}

    virtual void said(const Room &, const User & /*sender*/, const QString & /*text*/) {}
    virtual void whispered(qint32 /*cid*/, const User & /*sender*/, const User & /*recipient*/,
                           const QString & /*text*/)
    {}
    /// Those whom the command concerns are still in the room.
    virtual void commanded(const Room &, const User & /*sender*/, const QString & /*command*/) {}

    virtual void moodChanged(const User &) {}
    virtual void renamed(const User &) {}
    virtual void cameOnline(const User &) {}
    virtual void skinChanged(const QString & /*path*/) {}
    virtual void serverLost() {}
    virtual void serverReturned() {}
};

} // namespace messenger
