#pragma once

#include <QString>

class Prompts;
class QWidget;
class RoomLifecycle;
class frmComms;
struct SharedState;

/// A room that somebody else owns.
struct RoomToJoin
{
    qint32 id = 0;
    QString category;
    QString name;
};

/// A room that is to be. The category's key is what the messenger knows it by.
struct RoomToCreate
{
    QString categoryKey;
    QString category;
    QString name;
    bool isPrivate = false;
};

/// The way from the directory into a room: out of the one that the user is in, then into another's or one of
/// their own. It points the shared state at the room; the user is told of what fails, unless the directory
/// has been closed meanwhile.
class RoomEntry
{
public:
    /// It belongs to the directory. All of them must stay, but the directory may go in any wait.
    RoomEntry(QWidget &directory, SharedState &state, frmComms &link, RoomLifecycle &lifecycle,
              Prompts &prompts);

    /// Both wait for the messenger. True when the room is the current one now: the directory has done its
    /// work.
    [[nodiscard]] bool join(const RoomToJoin &room);
    /// The user is asked before the present room is left.
    [[nodiscard]] bool create(const RoomToCreate &room);

private:
    [[nodiscard]] bool leave(bool confirm);
    void tell(const QString &text);

    QWidget &m_directory;
    SharedState &m_state;
    frmComms &m_link;
    RoomLifecycle &m_lifecycle;
    Prompts &m_prompts;
};
