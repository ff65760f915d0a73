#pragma once

#include <QStringView>

/// The whole number that the text starts with: leading spaces are skipped, a sign may follow, and reading
/// stops at the first character that is no digit. 0 when there is none; the nearest number that fits when it
/// does not.
[[nodiscard]] qint32 leadingInt32(QStringView text);
