#pragma once

#include "core/colours.h"

/// The colours that a skin gives the words on the message board; these, until one brings its own.
struct ChatColours
{
    ColourPair message{0x001A1A1A, 0x00FCF2E8}; ///< the user's own
    ColourPair chattersMessage{0x001A1A1A, 0x00FFFFFF};
    ColourValue server = 0x006A5A4A;
    ColourValue serverWarning = 0x0000549A;
    ColourValue serverError = 0x001E26B3;
    ColourPair emotions{0x009D3E7A, 0x00FFFFFF};
    ColourPair username{0x009C4F1B, 0x00FCF2E8};
    ColourPair chattersName{0x004F6E0B, 0x00FFFFFF};
};
