#include "skin/icon_list.h"

#include "platform/image_list.h"
#include "platform/text_looks.h"
#include "skin/clsProgramIcons.h"

namespace {

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

void addProgramIcons(ImageList &imgList, const clsSkinResourceNew &skin, qreal devicePixelRatio)
{
    clsProgramIcons icons(skin);
    QObject::connect(&icons, &clsProgramIcons::MaskColour, &icons, [&](ColourValue colour) {
        imgList.setMaskColour(colour == noColour ? std::nullopt : std::optional(toColor(colour).rgb()));
    });
    QObject::connect(&icons, &clsProgramIcons::BitmapLoad, &icons,
                     [&](const SkinBitmap &bitmap, const QString &name) {
                         imgList.add(name, suitable(*bitmap, devicePixelRatio));
                     });
    icons.LoadBitmaps();
}
