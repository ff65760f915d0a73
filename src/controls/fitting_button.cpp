#include "controls/fitting_button.h"

#include "controls/SkinButton.h"
#include "controls/dressing.h"
#include "skin/caption_look.h"
#include "skin/clsSkinResourceNew.h"

namespace {

constexpr int captionMargin = 10; // pixels at either end of a caption

template <typename Item>
struct PictureOf
{
    ButtonState state;
    Item item;
};
template <typename Item>
PictureOf(ButtonState, Item) -> PictureOf<Item>;

constexpr std::array ordinaryPictures = {PictureOf{ButtonState::Normal, ButtonItem::Normal},
                                         PictureOf{ButtonState::Over, ButtonItem::Over},
                                         PictureOf{ButtonState::Clicked, ButtonItem::Clicked},
                                         PictureOf{ButtonState::Disabled, ButtonItem::Disabled},
                                         PictureOf{ButtonState::HasFocus, ButtonItem::HasFocus},
                                         PictureOf{ButtonState::Mask, ButtonItem::Mask}};

constexpr std::array formatPictures = {PictureOf{ButtonState::Normal, RoomItem::NormalFormat},
                                       PictureOf{ButtonState::Over, RoomItem::OverFormat},
                                       PictureOf{ButtonState::Clicked, RoomItem::ClickedFormat},
                                       PictureOf{ButtonState::Disabled, RoomItem::DisabledFormat},
                                       PictureOf{ButtonState::HasFocus, RoomItem::HasFocusFormat},
                                       PictureOf{ButtonState::Mask, RoomItem::MaskFormat}};

int widthFor(const SkinButton &button)
{
    const QFontMetrics metrics(captionFont(button.font()));
    return metrics.size(Qt::TextShowMnemonic, button.Caption()).width() + 2 * captionMargin;
}

template <typename Pictures, typename BitmapOf>
void setPictures(SkinButton &button, const Pictures &pictures, const BitmapOf &bitmapOf)
{
    button.ClearSkin();
    for (const auto &[state, item] : pictures) {
        button.SetSkin(state, bitmapOf(item));
    }
    button.FinishSkin();
}

/// The two ends as they are, and the column between them as often as it takes.
SkinBitmap widened(const SkinBitmap &bitmap, int more)
{
    if (bitmap == nullptr || bitmap->isEmpty()) {
        return bitmap;
    }
    const int left = bitmap->Width() / 2;
    const QSize right(bitmap->Width() - left, bitmap->Height());
    auto wide = std::make_shared<cDIBSection>();
    wide->Create(bitmap->Width() + more, bitmap->Height());
    wide->LoadPictureBlt(*bitmap, {}, QRect(0, 0, left, bitmap->Height()));
    for (int x = left; x < left + more; ++x) {
        wide->LoadPictureBlt(*bitmap, {x, 0}, QRect(left, 0, 1, bitmap->Height()));
    }
    wide->LoadPictureBlt(*bitmap, {left + more, 0}, QRect(QPoint(left, 0), right));
    return wide;
}

} // namespace

void dressFittingButton(SkinButton &button, const clsSkinResourceNew &skin)
{
    dressButton(button, skin);
    sizeUndressed(button);
    if (!button.isFinished()) {
        return;
    }
    const int more = widthFor(button) - button.width();
    if (more > 0) {
        setPictures(button, ordinaryPictures,
                    [&](ButtonItem item) { return widened(skin.DefaultButton(item).bitmap(), more); });
    }
}

void dressSignButton(SkinButton &button, const clsSkinResourceNew &skin, const QString &sign)
{
    button.setSkinCaption({});
    dressFittingButton(button, skin);
    if (skin.ChatRoom(RoomItem::NormalFormat).bitmap() != nullptr) {
        setPictures(button, formatPictures, [&](RoomItem item) { return skin.ChatRoom(item).bitmap(); });
        button.setSkinCaption(sign);
    }
}

void sizeUndressed(SkinButton &button)
{
    if (!button.isFinished()) {
        button.resize(button.sizeHint().expandedTo({widthFor(button), 0}));
    }
}
