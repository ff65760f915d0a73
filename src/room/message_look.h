#pragma once

#include "core/chat_colours.h"
#include "room/message_rtf.h"

class QFont;
struct Options;

/// The box that the user writes in, as far as messages take after it.
struct InputBoxLook
{
    const QFont &font;
    ColourPair colours;
};

/// What messages look like: in the colours of the options, or of the skin when the options say so.
[[nodiscard]] MessageLook messageLook(const Options &options, const ChatColours &skin,
                                      const InputBoxLook &inputBox);
