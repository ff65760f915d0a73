#pragma once

#include <QString>

/// What every rendering of a message does to the words of strangers before it shows them.

/// A name on one line: line ends show as spaces, what cannot be seen is gone, and of a name that is longer
/// than any honest one only the beginning is left.
[[nodiscard]] QString oneLine(const QString &name);

/// The text with plain line feeds for all kinds of line ends, those of other writing systems included.
[[nodiscard]] QString withLineFeeds(const QString &text);

/// The text without the tags "<b>", "<i>" and "<u>".
[[nodiscard]] QString withoutTags(const QString &text);

/// The text with the name for each "%U%" and the other name for each "%O%", in one pass, so that a name that
/// holds one of them is shown as it is. A hundred are filled in, more than any honest text has.
[[nodiscard]] QString filledIn(const QString &text, const QString &name, const QString &otherName);
