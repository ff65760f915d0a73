#include "room/exit_road.h"

#include "core/shared_state.h"
#include "link/frmComms.h"
#include "room/room_lifecycle.h"

namespace {

constexpr int tickMilliseconds = 500;
constexpr int patienceMilliseconds = 3000;

} // namespace

ExitRoad::ExitRoad(SharedState &state, RoomLifecycle &lifecycle, frmComms &link)
    : m_state(state), m_lifecycle(lifecycle), m_link(link)
{
    connect(&tmrShutdown, &QTimer::timeout, this, &ExitRoad::tick);
}

void ExitRoad::start()
{
    if (!isStarted()) {
        tmrShutdown.start(tickMilliseconds);
    }
}

void ExitRoad::tick()
{
    ++m_ticks;
    if (m_ticks == 1) {
        leaveRoom();
    } else if (m_ticks == 2) {
        tmrShutdown.stop();
        Q_EMIT ended();
    }
}

/// A messenger that does not answer holds nobody back for long.
void ExitRoad::leaveRoom()
{
    tmrShutdown.stop();
    QTimer::singleShot(patienceMilliseconds, &m_link, [&link = m_link] { link.setShutDown(); });
    if (m_state.InRoom && m_state.IsRoomOwner) {
        m_lifecycle.CloseRoom(false);
    } else if (m_state.InRoom) {
        m_lifecycle.LeaveRoom(false);
    }
    m_link.setShutDown();
    tmrShutdown.start(tickMilliseconds);
}
