#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <functional>

/// Has something done at most once a frame, however often it is asked for: when the event loop turns next, or
/// as soon as a frame has passed since the last time.
class FramePacer
{
public:
    explicit FramePacer(const std::function<void()> &work);

    void request();

private:
    QTimer m_timer;
    QElapsedTimer m_sinceLast;
};
