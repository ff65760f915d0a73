#include "room/frame_pacer.h"

namespace {

constexpr qint64 frameMilliseconds = 16;

} // namespace

FramePacer::FramePacer(const std::function<void()> &work)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, work] {
        work();
        m_sinceLast.start(); // from its end, so that it never takes all the time
    });
}

void FramePacer::request()
{
    if (!m_timer.isActive()) {
        const qint64 since = m_sinceLast.isValid() ? m_sinceLast.elapsed() : frameMilliseconds;
        m_timer.start(static_cast<int>(qMax(frameMilliseconds - since, qint64(0))));
    }
}
