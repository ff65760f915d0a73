#pragma once

#include <QPalette>

class clsSkinResourceNew;

/// The window's palette for the toolkit's own controls in it; the desktop's, without a skin. The style makes
/// the edges of its controls from the colour of the window, which on a dark skin cannot be seen: here they
/// are made from the ink.
[[nodiscard]] QPalette listLook(const clsSkinResourceNew &skin, QPalette window);

/// The same for boxes and buttons, whose edge shows that they have the keyboard: by a strong colour, while
/// the one for selected rows may be faint.
[[nodiscard]] QPalette boxLook(const clsSkinResourceNew &skin, const QPalette &window);
