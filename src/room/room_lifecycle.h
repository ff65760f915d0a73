#pragma once

#include <QString>

class CommandLine;
class Prompts;
class RoomView;
class colChatters;
class frmComms;
struct SharedState;

/// Points the window at a room and takes it out again. The shared state says which room is wanted; the shown
/// room is the one that the window has been set up for.
class RoomLifecycle
{
public:
    RoomLifecycle(SharedState &state, colChatters &chatters, frmComms &link, RoomView &view,
                  Prompts &prompts);

    /// Asks to join the room that the command line names, if it names one. False when the request failed; the
    /// user has been told.
    bool joinFrom(const CommandLine &commandLine);

    /// Makes another's room the current one. What was answered before does not count for it.
    void headFor(qint32 roomId, const QString &category, const QString &name);

    /// Sets the window up for the current room; nothing happens when it shows that room already.
    void EnterRoom();

    /// Leaves a joined room, or closes the user's own; both end in no room, even when the server fails. With
    /// confirm the user is asked first.
    void LeaveRoom(bool confirm);
    void CloseRoom(bool confirm);

    /// Where the answer to leaving or closing is still awaited, the room is left now and the answer tells
    /// nothing more. For those who go on inside that wait.
    void endDeparture();

    /// Back to no room, without telling anybody.
    void ResetRoom();

    /// The room's answer to the user's own request to join. One that comes before the window has been set up
    /// for the room is kept until then.
    void joinAnswered(const QString &code, const QString &toUserId);

    /// 0 for none.
    [[nodiscard]] qint32 ShownRoomID() const { return m_shownRoomId; }

private:
    struct JoinAnswer
    {
        qint32 roomId = 0; ///< 0: no answer is kept
        QString code;
        QString toUserId;
    };
    struct Departure
    {
        QString question;
        QString caption;
        bool (frmComms::*request)();
        QString success;
        QString failure;
    };

    [[nodiscard]] bool isConfirmed(const Departure &departure);
    void depart(const Departure &departure, bool confirm);

    SharedState &m_state;
    colChatters &m_chatters;
    frmComms &m_link;
    RoomView &m_view;
    Prompts &m_prompts;
    qint32 m_shownRoomId = 0;
    JoinAnswer m_earlyAnswer;
    bool m_asking = false;    ///< whether to depart
    bool m_departing = false; ///< the answer is waited for
};
