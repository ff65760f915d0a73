#include "link/wait.h"

#include <QCoreApplication>
#include <QEventLoop>

void waitUntil(const std::function<bool()> &condition)
{
    while (!condition()) {
        // What was posted before this loop began is not run by it until something new is posted.
        QCoreApplication::sendPostedEvents();
        if (condition()) {
            return;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}
