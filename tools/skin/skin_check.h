#pragma once

#include "tools/skin/skin_inspection.h"

/// All that is wrong with the skin, in the order of its skin.toml. A skin that cannot be opened is one error
/// with no place, or with that of the fault in its skin.toml.
[[nodiscard]] std::vector<Finding> checkSkin(const QString &path);

/// What findings call the file in which they are: a folder's skin.toml, an archive by its own name.
[[nodiscard]] QString nameInFindings(const QString &path);
