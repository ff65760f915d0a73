#pragma once

#include <QFont>
#include <QString>

/// Longer captions are cut there before anything is made of them.
inline constexpr int longestCaption = 500;

/// The font as captions are drawn in it: in whole points, and either bold or not.
[[nodiscard]] QFont captionFont(QFont font);

/// A window's title that shows this caption: the toolkit takes a "[*]" in it for a mark of its own.
[[nodiscard]] QString titleFor(QString caption);
/// The caption that such a title shows.
[[nodiscard]] QString captionOf(QString title);
