#pragma once

class SkinInspection;

/// Finds pictures whose sizes do not fit together: the states of a button, the pieces of a border, the icons
/// of a section; and pictures that cut away what they should not.
void checkSizes(SkinInspection &inspection);
