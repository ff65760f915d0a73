#pragma once

#include "core/colours.h"
#include "platform/skin_toml.h"

#include <QFont>

#include <optional>

/// The colour that paints nothing: "none" in a skin.
inline constexpr ColourValue noColour = 0xEFFFFFFF;

/// The text itself, for as long as the value lives; null for another kind.
[[nodiscard]] const QString *asText(const SkinTomlValue &value);

/// "#rrggbb", "none", or a number 0x00BBGGRR.
[[nodiscard]] std::optional<ColourValue> colourOf(const SkinTomlValue &value);

/// A text as it is, a number as people write it.
[[nodiscard]] std::optional<QString> textOf(const SkinTomlValue &value);

/// { face, size, bold, italic, underline, strikethrough }: face and size, in points, are needed.
[[nodiscard]] std::optional<QFont> fontOf(const SkinTomlValue &value);
