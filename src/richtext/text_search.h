#pragma once

#include "richtext/document.h"

#include <optional>

/// A stretch of one paragraph.
struct FoundText
{
    RichDocument::Place from;
    qsizetype length = 0;
};

/// The next place at which the words stand, in any letter case: the first that begins at or behind the place,
/// or, going backwards, the last that ends at or before it. Does not go round at the end.
[[nodiscard]] std::optional<FoundText> findText(const RichDocument &document, const QString &words,
                                                RichDocument::Place from, bool backwards);

/// Where the words stand in one paragraph; offsets.
[[nodiscard]] QList<qsizetype> findAll(QStringView paragraph, const QString &words);
