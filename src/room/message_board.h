#pragma once

#include "core/chat_colours.h"
#include "room/emoticon_replacer.h"
#include "room/message_kind.h"
#include "room/message_rtf.h"

#include <QFont>
#include <QObject>

class RichEdit;

/// Writes messages on the room's board: a message becomes a small RTF text, its emoticon codes become
/// pictures, and it goes to the end of the board as a paragraph of its own, in the font that the user writes
/// in.
class MessageBoard final : public QObject
{
    Q_OBJECT

public:
    /// All of them must stay. Colours and font are those of the box that the user writes in.
    MessageBoard(RichEdit &rtfMsgs, const Options &options, const ChatColours &skinColours,
                 EmoticonFile &emoticons, const ImageList &imgList);

    /// The box that the user writes in has changed its look. What is on the board takes on its font.
    void setInputBox(const QFont &font, const ColourPair &colours);

    /// The name is the sender's; the other name is whom an emotion is about. A view that the user has moved
    /// back stays where it is, and so does a selection.
    void AddMessage(const QString &text, MessageKind kind, const QString &name = {},
                    const QString &otherName = {}, bool highlight = false);
    void clear();

    /// A private message as RTF, for the windows of private conversations.
    [[nodiscard]] QString GeneratePrivateMsg(const QString &text) const;
    void ReplaceEmoticons(RichDocument &text, ColourValue ground)
    {
        m_replacer.ReplaceEmoticons(text, ground);
    }

private:
    [[nodiscard]] MessageLook look() const;
    [[nodiscard]] QString rtfOf(const QString &text, MessageKind kind, const QString &name,
                                const QString &otherName, bool highlight) const;

    RichEdit &rtfMsgs;
    const Options &m_options;
    const ChatColours &m_skinColours;
    EmoticonReplacer m_replacer;
    QFont m_font;
    ColourPair m_inputColours;
    bool m_autoScroll = true;
};
