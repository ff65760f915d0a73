#include "controls/fitting_button.h"

#include "controls/SkinButton.h"
#include "controls/dressing.h"
#include "skin/caption_look.h"
#include "skin/clsSkinResourceNew.h"

namespace {

constexpr int captionMargin = 10; // pixels at either end of a caption
constexpr int signMargin = 6;     // between a caption and what is drawn beside it

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

int widthFor(const SkinButton &button, int margin = captionMargin)
{
    const QFontMetrics metrics(captionFont(button.font()));
    return metrics.size(Qt::TextShowMnemonic, button.Caption()).width() + 2 * margin;
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

/// Whether two columns look alike where a caption stands.
bool alike(const QImage &picture, int x, int y)
{
    const int top = picture.height() / 4;
    for (int row = top; row < picture.height() - top; ++row) {
        if (picture.pixel(x, row) != picture.pixel(y, row)) {
            return false;
        }
    }
    return true;
}

/// How far what is drawn at the ends reaches into the picture, which is even between them; 0 for a picture
/// that is nowhere even enough to tell.
int drawnEnds(const QImage &picture)
{
    const int middle = picture.width() / 2;
    int left = middle;
    while (left > 0 && alike(picture, left - 1, middle)) {
        --left;
    }
    int right = middle;
    while (right + 1 < picture.width() && alike(picture, right + 1, middle)) {
        ++right;
    }
    return right - left < picture.width() / 4 ? 0 : qMax(left, picture.width() - 1 - right);
}

/// The picture of that state, which are the ordinary ones where the button has none of its own.
SkinBitmap pictureOf(const RoomButton &button, const clsSkinResourceNew &skin, ButtonItem ordinary)
{
    if (skin.ChatRoom(button.pictures).bitmap() == nullptr) {
        return skin.DefaultButton(ordinary).bitmap();
    }
    const int offset = static_cast<int>(ordinary) - static_cast<int>(ButtonItem::Normal);
    return skin.ChatRoom(static_cast<RoomItem>(static_cast<int>(button.pictures) + offset)).bitmap();
}

int widthLacking(const RoomButton &button, const clsSkinResourceNew &skin)
{
    const SkinBitmap normal = pictureOf(button, skin, ButtonItem::Normal);
    if (!button.button->isFinished() || normal == nullptr) {
        return 0;
    }
    const int margin = qMax(captionMargin, drawnEnds(normal->image()) + signMargin);
    return widthFor(*button.button, margin) - normal->Width();
}

} // namespace

void dressFittingColumn(std::initializer_list<RoomButton> column, const clsSkinResourceNew &skin)
{
    int more = 0;
    for (const RoomButton &each : column) {
        dressRoomButton(*each.button, skin, each.pictures, each.text);
        more = qMax(more, widthLacking(each, skin));
    }
    if (more == 0) {
        return;
    }
    for (const RoomButton &each : column) {
        setPictures(*each.button, ordinaryPictures,
                    [&](ButtonItem item) { return widened(pictureOf(each, skin, item), more); });
    }
}

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
