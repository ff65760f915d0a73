#pragma once

#include "platform/image_list.h"

#include <QString>

struct clsChatters;

/// The name of a status's or a mood's picture; empty for a status that has none. Every unknown mood is
/// "Indifferent".
[[nodiscard]] QString statusIcon(qint32 status);
[[nodiscard]] QString moodIcon(qint32 mood);

/// The picture's number in the list, counted from 1; 0 for none.
[[nodiscard]] inline int GetStatusIconNum(qint32 status, const ImageList &imgList)
{
    return imgList.index(statusIcon(status));
}
[[nodiscard]] inline int GetMoodIconNum(qint32 mood, const ImageList &imgList)
{
    return imgList.index(moodIcon(mood));
}

/// The name of the picture in front of a member: the mood of one who is online and in the room, else the
/// status.
[[nodiscard]] QString memberIcon(const clsChatters &member);
