#pragma once

#include <QObject>
#include <QTimer>

class RoomLifecycle;
class frmComms;
struct SharedState;

/// The orderly end of the program, in two ticks: the room is left and the link shut down, then the windows
/// go.
class ExitRoad final : public QObject
{
    Q_OBJECT

public:
    ExitRoad(SharedState &state, RoomLifecycle &lifecycle, frmComms &link);

    /// Starts the way out; again is no harm.
    void start();
    [[nodiscard]] bool isStarted() const { return m_ticks > 0 || tmrShutdown.isActive(); }

Q_SIGNALS:
    /// All windows are to be unloaded.
    void ended();

private:
    void tick();
    void leaveRoom();

    SharedState &m_state;
    RoomLifecycle &m_lifecycle;
    frmComms &m_link;
    QTimer tmrShutdown;
    int m_ticks = 0;
};
