#pragma once

#include <QString>

/// A stranger's name without what cannot be seen but changes what is seen: direction overrides, isolates,
/// zero-width characters. A joiner stays between letters of scripts that join.
[[nodiscard]] QString shownName(const QString &name);
