#include "skin/icon_list.h"

#include "platform/image_list.h"
#include "skin/clsProgramIcons.h"

namespace {

QRgb toRgb(ColourValue colour)
{
    return qRgb(static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
                static_cast<int>(colour >> 16 & 0xFF));
}

QImage suitable(const cDIBSection &bitmap, qreal devicePixelRatio)
{
    SkinPicture picture = bitmap.picture();
    if (devicePixelRatio > 1 && !picture.image2x.isNull()) {
        picture.image2x.setDevicePixelRatio(2);
        return picture.image2x;
    }
    return picture.image;
}

} // namespace

void addProgramIcons(ImageList &imgList, const clsMyApp &myApp, qreal devicePixelRatio)
{
    clsProgramIcons icons(myApp);
    QObject::connect(&icons, &clsProgramIcons::MaskColour, &icons, [&](ColourValue colour) {
        imgList.setMaskColour(colour == noIconMaskColour ? std::nullopt : std::optional(toRgb(colour)));
    });
    QObject::connect(&icons, &clsProgramIcons::BitmapLoad, &icons,
                     [&](const SkinBitmap &bitmap, const QString &name) {
                         imgList.add(name, suitable(*bitmap, devicePixelRatio));
                     });
    icons.LoadBitmaps();
}
