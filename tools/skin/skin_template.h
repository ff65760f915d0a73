#pragma once

#include "platform/skin_archive.h"

#include <vector>

/// The files of a plain skin to begin with: a skin.toml that has every key and explains it, and pictures.
/// Needs a QGuiApplication.
[[nodiscard]] std::vector<SkinContent> templateSkin();
