#pragma once

#include <QRgb>

class SkinInspection;

/// Finds text that is hard to read on its ground. Colours that the skin lacks count as what the program takes
/// in their place, black.
void checkContrast(SkinInspection &inspection);

/// From 1, the same, to 21, black and white; which of them is the text does not matter.
[[nodiscard]] double contrast(QRgb a, QRgb b);
