#pragma once

#include <QString>

class QFont;
class RoomView;
class frmComms;
struct SharedState;
struct clsChatters;
struct clsEmotions;

/// The item in which a message travels to the room: a tag for each of bold, italic and underline that the
/// font has, and the text without control characters, which would forge the end of the item.
[[nodiscard]] QString roomMessageItem(QStringView text, const QFont &font);

/// The item in which an emotion travels to the room. Its text is the one for a member when there is one.
[[nodiscard]] QString emotionItem(const clsEmotions &emotion, const QString &ownName,
                                  const clsChatters *toMember);

/// The emotion's text for that member, or for the room when there is none.
[[nodiscard]] const QString &emotionText(const clsEmotions &emotion, const clsChatters *toMember);

/// Sends what the user has written and shows the user's own copy once the messenger has it.
class Composing
{
public:
    Composing(SharedState &state, frmComms &link, RoomView &view);

    /// True when the message has been acknowledged, so that the box may be emptied; it has been shown then,
    /// unless the room was left meanwhile. False, and nothing shown, when there is nothing to send or no room
    /// to send it to, when another send is under way, or when the messenger did not take it.
    [[nodiscard]] bool send(const QString &text, const QFont &font);

    /// The emotion to the room, about the member if there is one; no more when the user is in no room. Shows
    /// the own copy once the messenger has it.
    void sendEmotion(const clsEmotions &emotion, const clsChatters *toMember);

private:
    SharedState &m_state;
    frmComms &m_link;
    RoomView &m_view;
    bool m_sending = false;
};
