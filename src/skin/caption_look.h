#pragma once

#include <QFont>

/// Longer captions are cut there before anything is made of them.
inline constexpr int longestCaption = 500;

/// The font as captions are drawn in it: in whole points, and either bold or not.
[[nodiscard]] QFont captionFont(QFont font);
