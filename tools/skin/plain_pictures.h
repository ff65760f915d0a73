#pragma once

#include "tools/skin/authored_skin.h"

#include <QImage>

/// A flat picture for the key, drawn in code, so many times as large as at 100 %. Needs a QGuiApplication.
[[nodiscard]] QImage plainPicture(SkinKeyName name, int scale);
