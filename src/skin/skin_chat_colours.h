#pragma once

#include "core/chat_colours.h"

class clsSkinResourceNew;

/// The colours that the skin gives the words on the message board; the program's own without a skin.
[[nodiscard]] ChatColours chatColoursOf(const clsSkinResourceNew &skin);
