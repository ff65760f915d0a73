#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

/// Lets events run until the condition holds, and looks again after each of them and every 10 ms; false when
/// it does not hold within the time.
template <typename Condition>
[[nodiscard]] bool eventually(Condition condition, int milliseconds = 10000)
{
    QElapsedTimer elapsed;
    elapsed.start();
    QTimer wakeUp;
    wakeUp.start(10);
    while (!condition()) {
        if (elapsed.hasExpired(milliseconds)) {
            return false;
        }
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}
