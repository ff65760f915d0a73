#pragma once

#include <QDateTime>

/// The time, and a way to let it pass. Passed in, so that time limits are tested without waiting.
class Clock
{
public:
    Clock() = default;
    Clock(const Clock &) = delete;
    Clock &operator=(const Clock &) = delete;
    virtual ~Clock() = default;

    /// Local date and time, for showing.
    [[nodiscard]] virtual QDateTime now() const = 0;

    /// Milliseconds since some fixed moment. Setting the computer's clock does not change it, so all time
    /// limits count with it.
    [[nodiscard]] virtual qint64 steadyMilliseconds() const = 0;

    /// Blocks the whole program: no event is handled meanwhile.
    virtual void block(qint64 milliseconds) = 0;
};

class SystemClock final : public Clock
{
public:
    [[nodiscard]] QDateTime now() const override;
    [[nodiscard]] qint64 steadyMilliseconds() const override;
    void block(qint64 milliseconds) override;
};
