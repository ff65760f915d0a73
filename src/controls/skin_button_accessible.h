#pragma once

/// How assistive programs see a SkinButton: a button that may be one that latches, with its caption as its
/// name.

/// Makes the toolkit ask for it; once is enough, more does no harm.
void installSkinButtonAccessibility();
