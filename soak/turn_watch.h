#pragma once

#include <QApplication>

#include <atomic>
#include <chrono>

/// The application, which measures the turns of its event loop: how long it is busy between one look at what
/// has come and the next. Judged is the CPU time of its thread, because other programs share the machine.
class TurnWatch final : public QApplication
{
    struct Moment
    {
        std::chrono::nanoseconds cpu{};
        std::chrono::nanoseconds wall{};

        [[nodiscard]] static Moment now();
        Moment operator-(const Moment &other) const { return {cpu - other.cpu, wall - other.wall}; }
        Moment operator+(const Moment &other) const { return {cpu + other.cpu, wall + other.wall}; }
    };

public:
    struct Turn
    {
        double cpu = 0;               ///< milliseconds
        const char *busiest = "none"; ///< the class that the longest of its events went to
    };

    TurnWatch(int &argc, char **argv);

    bool notify(QObject *receiver, QEvent *event) override;

    /// The longest so far by CPU time.
    [[nodiscard]] const Turn &longest() const { return m_longest; }
    /// Milliseconds; it may be another turn.
    [[nodiscard]] double longestWall() const { return m_longestWall; }
    /// Grows with every turn; any thread may ask.
    [[nodiscard]] quint64 turns() const { return m_turns; }

    /// What is done while one lives is not counted: the soak's own looks, and blocks that are by rule.
    class Uncounted
    {
    public:
        explicit Uncounted(TurnWatch &watch) : m_watch(watch), m_from(Moment::now()) {}
        ~Uncounted() { m_watch.m_begin = m_watch.m_begin + (Moment::now() - m_from); }
        Uncounted(const Uncounted &) = delete;
        Uncounted &operator=(const Uncounted &) = delete;

    private:
        TurnWatch &m_watch;
        Moment m_from;
    };

private:
    void begin();
    void end();

    Moment m_begin;
    bool m_busy = false;
    int m_depth = 0; ///< of handlers that let events run
    std::chrono::nanoseconds m_busiestCost{};
    const char *m_busiest = "none";
    Turn m_longest;
    double m_longestWall = 0;
    std::atomic<quint64> m_turns = 0;
};
