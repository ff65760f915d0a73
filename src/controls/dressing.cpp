#include "controls/dressing.h"

#include "controls/SkinButton.h"
#include "controls/SkinFrame.h"
#include "skin/clsSkinResourceNew.h"

#include <array>

namespace {

/// The states in the order in which a group of six bitmaps has them.
constexpr std::array groupOfSix = {ButtonState::Normal,   ButtonState::Over,     ButtonState::Clicked,
                                   ButtonState::Disabled, ButtonState::HasFocus, ButtonState::Mask};

template <typename Item>
constexpr Item after(Item first, std::size_t offset)
{
    return static_cast<Item>(static_cast<int>(first) + static_cast<int>(offset));
}

/// Hands the bitmaps over, from that item on, each for the state at the same place.
template <typename States, typename BitmapAt>
void setSkins(SkinButton &button, const States &states, const BitmapAt &bitmapAt)
{
    button.ClearSkin();
    for (std::size_t i = 0; i < states.size(); ++i) {
        button.SetSkin(states[i], bitmapAt(i));
    }
    button.FinishSkin();
}

void setTextColours(SkinButton &button, const clsSkinResourceNew &skin)
{
    const auto colour = [&](ButtonItem item) { return skin.DefaultButton(item).colour(); };
    if (skin.isRead()) {
        button.ForeColour = colour(ButtonItem::ForeColour);
        button.ForeShadowColour = colour(ButtonItem::ShadowColour);
        button.DisabledForeColour = colour(ButtonItem::DisabledColour);
        button.DisabledShadowColour = colour(ButtonItem::DisabledShadowColour);
    }
    if (const auto font = skin.DefaultButton(ButtonItem::Font).font()) {
        button.setFont(*font);
    }
}

void setDefaultSkins(SkinButton &button, const clsSkinResourceNew &skin)
{
    setSkins(button, groupOfSix,
             [&](std::size_t i) { return skin.DefaultButton(after(ButtonItem::Normal, i)).bitmap(); });
}

} // namespace

void dressButton(SkinButton &button, const clsSkinResourceNew &skin)
{
    setTextColours(button, skin);
    setDefaultSkins(button, skin);
}

void dressRoomButton(SkinButton &button, const clsSkinResourceNew &skin, RoomItem normal, RoomItem text)
{
    setTextColours(button, skin);
    if (skin.ChatRoom(normal).bitmap() == nullptr) {
        setDefaultSkins(button, skin);
    } else {
        setSkins(button, groupOfSix, [&](std::size_t i) { return skin.ChatRoom(after(normal, i)).bitmap(); });
    }
    if (const QString caption = skin.ChatRoom(text).text(); !caption.isEmpty()) {
        button.setCaption(caption);
    }
}

void dressFormatButton(SkinButton &button, const clsSkinResourceNew &skin, RoomItem overlay)
{
    constexpr std::array states = {ButtonState::Normal,   ButtonState::Over,     ButtonState::Clicked,
                                   ButtonState::Disabled, ButtonState::HasFocus, ButtonState::Down,
                                   ButtonState::Mask};
    setTextColours(button, skin);
    setSkins(button, states,
             [&](std::size_t i) { return skin.ChatRoom(after(RoomItem::NormalFormat, i)).bitmap(); });
    const bool keyed = skin.ChatRoom(RoomItem::HasOverlays).number() != 0;
    button.OverlayMaskColour = keyed ? 0 : SkinButton::noOverlayMaskColour;
    button.SetSkin(ButtonState::Overlay, skin.ChatRoom(overlay).bitmap());
}

void dressSelectButton(SkinButton &button, clsSkinResourceNew &skin)
{
    constexpr std::array states = {ButtonState::Normal,   ButtonState::Over,     ButtonState::Clicked,
                                   ButtonState::Disabled, ButtonState::HasFocus, ButtonState::Mask,
                                   ButtonState::Down};
    setTextColours(button, skin);
    if (skin.isRead()) {
        button.ForeColour = skin.OptionsForm(OptionsItem::ButtonForeColour).colour();
        button.ForeShadowColour = skin.OptionsForm(OptionsItem::ButtonShadowColour).colour();
        button.DisabledForeColour = skin.OptionsForm(OptionsItem::ButtonDisabledColour).colour();
        button.DisabledShadowColour = skin.OptionsForm(OptionsItem::ButtonDisabledShadowColour).colour();
    }
    if (const auto font = skin.OptionsForm(OptionsItem::ButtonFont).font()) {
        button.setFont(*font);
    }
    setSkins(button, states,
             [&](std::size_t i) { return skin.OptionsForm(after(OptionsItem::NormalSelect, i)).bitmap(); });
}

void dressInfoButton(SkinButton &button, clsSkinResourceNew &skin, std::unique_ptr<SkinStorage> &storage)
{
    setTextColours(button, skin);
    setSkins(button, groupOfSix, [&](std::size_t i) {
        return skin.MessagingForm(after(PrivateItem::NormalInfo, i), storage).bitmap();
    });
}

void dressSystemButton(SkinButton &button, clsSkinResourceNew &skin, FormItem normal)
{
    constexpr std::array states = {ButtonState::Normal, ButtonState::Over, ButtonState::Clicked};
    setSkins(button, states, [&](std::size_t i) { return skin.FormDefaults(after(normal, i)).bitmap(); });
}

void dressFrame(SkinFrame &frame, const clsSkinResourceNew &skin)
{
    if (skin.isRead()) {
        frame.BackColor = skin.Frame(FrameItem::BackColour).colour();
    }
    for (std::size_t i = 0; i < 8; ++i) {
        frame.SetSkin(after(FramePiece::TopLeft, i), skin.Frame(after(FrameItem::TopLeft, i)).bitmap());
    }
    frame.Refresh();
}
