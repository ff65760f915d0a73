#pragma once

#include <QString>

class QFont;
class RoomView;
class frmComms;
struct SharedState;

/// The item in which a message travels to the room: a tag for each of bold, italic and underline that the
/// font has, and the text without control characters, which would forge the end of the item.
[[nodiscard]] QString roomMessageItem(QStringView text, const QFont &font);

/// Sends what the user has written and shows the user's own copy once the messenger has it.
class Composing
{
public:
    Composing(SharedState &state, frmComms &link, RoomView &view);

    /// True when the message has been acknowledged, so that the box may be emptied; it has been shown then,
    /// unless the room was left meanwhile. False, and nothing shown, when there is nothing to send or no room
    /// to send it to, when another send is under way, or when the messenger did not take it.
    [[nodiscard]] bool send(const QString &text, const QFont &font);

private:
    SharedState &m_state;
    frmComms &m_link;
    RoomView &m_view;
    bool m_sending = false;
};
