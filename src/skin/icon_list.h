#pragma once

#include <QtGlobal>

class ImageList;
class clsMyApp;

/// Adds the skin's icons to the list, each under its name and in the picture that suits the ratio of device
/// pixels; the icons' transparent colour becomes the list's. Icons that the skin lacks stay as they were.
/// Throws SkinError where the skin is not fit to be used.
void addProgramIcons(ImageList &imgList, const clsMyApp &myApp, qreal devicePixelRatio);
