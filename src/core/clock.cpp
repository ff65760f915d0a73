#include "core/clock.h"

#include <QThread>

#include <chrono>

QDateTime SystemClock::now() const
{
    return QDateTime::currentDateTime();
}

qint64 SystemClock::steadyMilliseconds() const
{
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(sinceStart).count();
}

void SystemClock::block(qint64 milliseconds)
{
    QThread::msleep(static_cast<unsigned long>(milliseconds));
}
