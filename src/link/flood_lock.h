#pragma once

#include <QtGlobal>

class Clock;
class Prompts;

/// Slows down a user who sends too fast: with the third message within two seconds the program is blocked for
/// five. It delays messages and never refuses one.
class FloodLock
{
public:
    FloodLock(Clock &clock, Prompts &prompts) : m_clock(clock), m_prompts(prompts) {}

    /// Called before each message; returns when it may be queued. A message that comes while the box is open
    /// is let through at once: waiting inside it would keep the box from closing.
    void admit();

private:
    Clock &m_clock;
    Prompts &m_prompts;
    int m_floodCount = 0;
    qint64 m_floodStart = 0; ///< the clock's steady milliseconds
    bool m_boxOpen = false;
};
