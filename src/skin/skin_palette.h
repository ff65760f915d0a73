#pragma once

#include <QPalette>

class clsSkinResourceNew;

/// The skin's colours for the toolkit's own controls inside a window: scroll bars, boxes for text, lists. The
/// given palette without a skin.
[[nodiscard]] QPalette skinPalette(clsSkinResourceNew &skin, const QPalette &withoutSkin);
