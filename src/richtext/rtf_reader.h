#pragma once

#include "richtext/document.h"

#include <QByteArrayView>
#include <QStringView>

/// How reading ended. What was readable is in the document in every case.
struct RtfStatus
{
    enum class Problem : quint8
    {
        None,
        NotRtf,       ///< the text does not begin as RTF; nothing was read
        Unbalanced,   ///< a group is closed that was not opened, or the text ends inside one
        TooDeep,      ///< groups nest more than 64 deep; those below were passed over
        TooManyPixels ///< pictures were passed over that are larger than allowed
    };

    Problem problem = Problem::None; ///< the first one that was met
    qsizetype offset = 0;            ///< where, in characters from the start

    [[nodiscard]] bool isOk() const { return problem == Problem::None; }
};

/// Reads RTF into an empty document, in one pass. Characters outside ASCII are taken as they are. Whatever
/// the text holds, reading ends, and takes no more memory than the text and its pictures justify.
[[nodiscard]] RtfStatus readRtf(QStringView rtf, RichDocument &document);

/// The same for the bytes of a file; bytes above 127 are in the code page in force where they stand.
[[nodiscard]] RtfStatus readRtf(QByteArrayView rtf, RichDocument &document);
