#pragma once

#include <QString>
#include <QStringList>

/// Ends each value inside the text of a room command or of an emotion.
inline constexpr QChar valueEnd(3);
/// Stands between an emotion's text and its attributes.
inline constexpr QChar emotionTextEnd(2);
/// Ends each item of a room or private message.
inline constexpr QChar itemEnd(1);

/// The items of a message, without their ends; what follows the last end is none. A client sends one at a
/// time: of a flood in one message the first thousand count.
[[nodiscard]] QStringList itemsOf(const QString &message);

/// The text without control characters other than tab, which would forge the end of a value or an item.
[[nodiscard]] QString withoutControlCharacters(QStringView text);

/// The characters behind the key (such as " userid=") up to the next value end; the default when the key or
/// the end is missing.
[[nodiscard]] QString GetAttribute(QStringView text, QStringView key, const QString &defaultValue);
