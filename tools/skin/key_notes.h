#pragma once

#include "skin/skin_catalogue.h"
#include "tools/skin/authored_skin.h"

/// What a key dresses, for authors: "the ordinary button: at rest". Empty for a key that nobody has
/// described.
[[nodiscard]] QString purposeOf(SkinKeyName name);

/// What a plain skin says there, as TOML; empty for pictures and fonts.
[[nodiscard]] QString plainValueOf(SkinKeyName name);
