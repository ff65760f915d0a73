#pragma once

#include <QObject>
#include <QSet>
#include <QTimer>

class Reply;
class RoomView;
class colChatters;
class frmComms;
struct SharedState;

/// The two slow steps of a room's life, looked at once a second: letting the user in who has been accepted,
/// and letting in those whom the owner accepts without asking.
class Admission final : public QObject
{
    Q_OBJECT

public:
    Admission(SharedState &state, colChatters &chatters, frmComms &link, RoomView &view);

    /// One look. A look that begins inside another one, which waits for the messenger, does nothing.
    void check();

private:
    void letMeIn();
    void letOthersIn();
    void fetchContents();
    void addMembers(const Reply &reply, QSet<QString> &seen);
    [[nodiscard]] bool isStillIn(qint32 roomId) const;
    void reportContents(const QString &reason);

    SharedState &m_state;
    colChatters &m_chatters;
    frmComms &m_link;
    RoomView &m_view;
    QTimer tmrCheck;
    bool m_checking = false;
};
