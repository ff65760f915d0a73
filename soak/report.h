#pragma once

#include <QMutex>
#include <QStringList>

#include <deque>
#include <functional>
#include <map>

/// What happened, for the day on which something is wrong: the last steps, and how often each was taken.
/// Everything that is wrong ends here, and ends the program: a failed check, a warning of the toolkit, a
/// sanitizer's report.
class Report
{
public:
    explicit Report(quint32 seed);
    ~Report();
    Report(const Report &) = delete;
    Report &operator=(const Report &) = delete;

    void step(const QString &name, const QString &details);
    /// Says so, shows the last steps and ends the program.
    [[noreturn]] void fail(const QString &what);
    void require(bool condition, const QString &what)
    {
        if (!condition) {
            fail(what);
        }
    }

    [[nodiscard]] const std::map<QString, int> &taken() const { return m_taken; }

private:
    void printSteps();

    quint32 m_seed;
    QMutex m_mutex;
    std::deque<QString> m_steps;
    std::map<QString, int> m_taken;
    std::function<void()> m_print;
};
