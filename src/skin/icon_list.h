#pragma once

#include <QtGlobal>

class ImageList;
class clsSkinResourceNew;

/// Adds the skin's icons to the list, each under its name and in the picture that suits the ratio of device
/// pixels; the icons' transparent colour becomes the list's. Icons that the skin lacks stay as they were.
void addProgramIcons(ImageList &imgList, const clsSkinResourceNew &skin, qreal devicePixelRatio);
