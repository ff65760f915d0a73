#pragma once

#include <QString>

namespace messenger {

/// The most characters that a name of a user or a room, and a text that is passed on, may have.
inline constexpr qsizetype maximumNameLength = 100;
inline constexpr qsizetype maximumTextLength = 65'536;

/// A name without control characters, cut to the longest a name may be.
[[nodiscard]] QString cleanName(QStringView name);

/// A text for others without control characters, except those that build items (1, 2, 3) and lines (9, 10,
/// 13).
[[nodiscard]] QString cleanText(QStringView text);

} // namespace messenger
