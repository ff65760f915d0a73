#include "soak/turn_watch.h"

#include <QAbstractEventDispatcher>
#include <QThread>

#include <ctime>
#include <utility>

namespace {

double milliseconds(std::chrono::nanoseconds time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

std::chrono::nanoseconds read(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

} // namespace

TurnWatch::Moment TurnWatch::Moment::now()
{
    return {read(CLOCK_THREAD_CPUTIME_ID), read(CLOCK_MONOTONIC)};
}

TurnWatch::TurnWatch(int &argc, char **argv) : QApplication(argc, argv)
{
    const QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance();
    connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, &TurnWatch::end);
    connect(dispatcher, &QAbstractEventDispatcher::awake, this, [this] {
        end();
        if (m_depth > 0) {
            begin(); // the handler that has let events run goes on
        }
    });
}

void TurnWatch::begin()
{
    m_busy = true;
    m_begin = Moment::now();
    m_busiestCost = {};
    m_busiest = "none";
}

void TurnWatch::end()
{
    if (!std::exchange(m_busy, false)) {
        return;
    }
    const Moment turn = Moment::now() - m_begin;
    ++m_turns;
    if (milliseconds(turn.cpu) > m_longest.cpu) {
        m_longest = {milliseconds(turn.cpu), m_busiest};
    }
    m_longestWall = std::max(m_longestWall, milliseconds(turn.wall));
}

bool TurnWatch::notify(QObject *receiver, QEvent *event)
{
    if (QThread::currentThread() != thread()) {
        return QApplication::notify(receiver, event);
    }
    if (!m_busy) {
        begin();
    }
    const char *name = receiver->metaObject()->className();
    const quint64 turn = m_turns;
    const Moment from = Moment::now();
    ++m_depth;
    const bool handled = QApplication::notify(receiver, event);
    --m_depth;
    const auto cost = (Moment::now() - from).cpu;
    if (turn == m_turns && cost > m_busiestCost) {
        m_busiestCost = cost;
        m_busiest = name;
    }
    return handled;
}
