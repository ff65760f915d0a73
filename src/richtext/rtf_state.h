#pragma once

#include "richtext/text_format.h"

/// Where the text of a group goes.
enum class RtfDestination : quint8
{
    Body,
    Skipped,
    FontTable,
    ColourTable,
    Picture,
    PictureProperties,
    PropertyName,
    PropertyValue,
};

/// What a group inherits and gives back at its end.
struct RtfState
{
    TextFormat format;
    ParagraphFormat paragraph;
    RtfDestination destination = RtfDestination::Body;
    bool hidden = false;
    qint32 unicodeFallback = 1; ///< how many characters stand behind a \u for those who do not know it
    int codePage = 0;           ///< 0: the document's
};
