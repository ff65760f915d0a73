#pragma once

#include "core/colours.h"
#include "room/message_kind.h"

#include <QString>

/// Messages as small RTF documents, each with its own colour table. The message board and the private
/// conversations show them.

/// What a message's look is made of: the colours of each kind, whether they are the user's own or the skin's,
/// and the font of the box that the user writes in.
struct MessageLook
{
    ColourPair ownName;
    ColourPair ownText;
    ColourPair memberName;
    ColourPair memberText;
    ColourValue highlight = 0x0000FFFF; ///< background of a highlighted member's text
    ColourPair emotionName;
    ColourPair emotionText;
    ColourPair privateText;
    ColourValue normal = 0; ///< notices
    ColourValue warning = 0;
    ColourValue error = 0;

    double points = 10; ///< size of the font
    bool bold = false;
    bool italic = false;
    bool underline = false;
};

/// Makes the RTF of messages. The tags "<b>", "<i>" and "<u>" anywhere in a text are taken out and make the
/// whole of it bold, italic or underlined.
class MessageRtf
{
public:
    MessageRtf(const MessageLook &look, const SystemColours &systemColours)
        : m_look(look), m_systemColours(systemColours)
    {}

    /// The user's own message (which has the box's bold, italic and underline as well) or a member's.
    [[nodiscard]] QString GenerateRTF(const QString &text, MessageKind kind, const QString &name,
                                      bool highlight) const;

    /// A private message to the user.
    [[nodiscard]] QString GeneratePrivateMsg(const QString &text) const;

    /// "%U%" stands for the sender, "%O%" for the other member.
    [[nodiscard]] QString GenerateEmotion(const QString &text, const QString &name,
                                          const QString &otherName) const;

    /// A notice of the room, labelled "SERVER: ". Kinds other than normal, warning and error have no colour.
    [[nodiscard]] QString GenerateServerMsg(const QString &text, MessageKind kind) const;

    /// A notice of the messenger, labelled "PYLOX: ".
    [[nodiscard]] QString GeneratePyloxMsg(const QString &text, MessageKind kind) const;

private:
    [[nodiscard]] QString start(std::initializer_list<ColourValue> colours) const;
    [[nodiscard]] QString size() const;
    [[nodiscard]] QString notice(const QString &text, const QString &label,
                                 std::initializer_list<ColourValue> colours) const;

    const MessageLook &m_look;
    const SystemColours &m_systemColours;
};
