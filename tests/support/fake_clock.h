#pragma once

#include "core/clock.h"

/// A clock that stands still until it is told to go on.
class FakeClock final : public Clock
{
public:
    [[nodiscard]] QDateTime now() const override
    {
        return QDateTime(QDate(2026, 3, 5), QTime(12, 0)).addMSecs(m_milliseconds);
    }
    [[nodiscard]] qint64 steadyMilliseconds() const override { return m_milliseconds; }
    void block(qint64 milliseconds) override
    {
        blocked += milliseconds;
        m_milliseconds += milliseconds;
    }
    void advance(qint64 milliseconds) { m_milliseconds += milliseconds; }

    qint64 blocked = 0; ///< how long the program was blocked in all

private:
    qint64 m_milliseconds = 1'000'000;
};
