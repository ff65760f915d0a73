#pragma once

#include "messenger/guest_script.h"
#include "messenger/world_listener.h"

#include <optional>

class Clock;

namespace messenger {

class World;

/// Puts guests into the world and moves them: passes the news on to their script, and does what it hands out.
/// The hosts of the rooms that are there from the start are moved by it too, guests or none.
class Guests final : public WorldListener
{
public:
    /// Registers itself with the world; all three must outlive the world's last change.
    Guests(World &world, const Clock &clock, int count, quint32 seed);

    /// Does all that is due.
    void act();

    /// Milliseconds until act() is to be called; none while nothing is planned.
    [[nodiscard]] std::optional<qint64> untilNext() const;

    void asked(const Room &room, const User &user) override;
    void answered(const Room &room, const User &user, Code code) override;
    void entered(const Room &room, const User &user) override;
    void left(const Room &room, const User &user) override;
    void said(const Room &room, const User &sender, const QString &text) override;
    void whispered(qint32 cid, const User &sender, const User &recipient, const QString &text) override;

private:
    void apply(const GuestAction &action);
    [[nodiscard]] qint64 now() const;

    World &m_world;
    const Clock &m_clock;
    GuestScript m_script;
};

} // namespace messenger
