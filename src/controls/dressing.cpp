#include "controls/dressing.h"

#include "controls/SkinButton.h"
#include "controls/SkinFrame.h"
#include "platform/text_looks.h"
#include "skin/clsSkinResourceNew.h"

#include <QLabel>
#include <QMenu>
#include <QWidgetAction>

#include <array>
#include <optional>

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

/// The look of its text; without a skin it is that of a button that has never had one.
void setText(SkinButton &button, const ButtonColours &colours, const std::optional<QFont> &font)
{
    button.Colours = colours;
    button.setFont(font.value_or(QFont()));
}

void setDefaultText(SkinButton &button, const clsSkinResourceNew &skin)
{
    const auto colour = [&](ButtonItem item) { return skin.DefaultButton(item).colour(); };
    setText(button,
            skin.isRead()
                ? ButtonColours{colour(ButtonItem::ForeColour), colour(ButtonItem::ShadowColour),
                                colour(ButtonItem::DisabledColour), colour(ButtonItem::DisabledShadowColour)}
                : ButtonColours(),
            skin.DefaultButton(ButtonItem::Font).font());
}

void setDefaultSkins(SkinButton &button, const clsSkinResourceNew &skin)
{
    setSkins(button, groupOfSix,
             [&](std::size_t i) { return skin.DefaultButton(after(ButtonItem::Normal, i)).bitmap(); });
}

/// Stands on a button that the skin has no picture for, so that people can tell it from the others.
QString letterOf(RoomItem overlay)
{
    switch (overlay) {
    case RoomItem::BoldOverlay:
        return QStringLiteral("B");
    case RoomItem::ItalicOverlay:
        return QStringLiteral("I");
    case RoomItem::UnderlineOverlay:
        return QStringLiteral("U");
    default:
        return QStringLiteral(":)");
    }
}

} // namespace

void dressButton(SkinButton &button, const clsSkinResourceNew &skin)
{
    setDefaultText(button, skin);
    setDefaultSkins(button, skin);
}

void dressRoomButton(SkinButton &button, const clsSkinResourceNew &skin, RoomItem normal, RoomItem text)
{
    setDefaultText(button, skin);
    if (skin.ChatRoom(normal).bitmap() == nullptr) {
        setDefaultSkins(button, skin);
    } else {
        setSkins(button, groupOfSix, [&](std::size_t i) { return skin.ChatRoom(after(normal, i)).bitmap(); });
    }
    button.setSkinCaption(skin.ChatRoom(text).text());
}

void dressFormatButton(SkinButton &button, const clsSkinResourceNew &skin, RoomItem overlay)
{
    constexpr std::array states = {ButtonState::Normal,   ButtonState::Over,     ButtonState::Clicked,
                                   ButtonState::Disabled, ButtonState::HasFocus, ButtonState::Down,
                                   ButtonState::Mask};
    setDefaultText(button, skin);
    setSkins(button, states,
             [&](std::size_t i) { return skin.ChatRoom(after(RoomItem::NormalFormat, i)).bitmap(); });
    const bool keyed = skin.ChatRoom(RoomItem::HasOverlays).number() != 0;
    button.OverlayMaskColour = keyed ? 0 : noColour;
    const SkinBitmap sign = skin.ChatRoom(overlay).bitmap();
    button.SetSkin(ButtonState::Overlay, sign);
    button.setSkinCaption(button.isFinished() && sign != nullptr ? QString() : letterOf(overlay));
}

void dressSelectButton(SkinButton &button, clsSkinResourceNew &skin)
{
    constexpr std::array states = {ButtonState::Normal,   ButtonState::Over,     ButtonState::Clicked,
                                   ButtonState::Disabled, ButtonState::HasFocus, ButtonState::Mask,
                                   ButtonState::Down};
    const auto colour = [&](OptionsItem item) { return skin.OptionsForm(item).colour(); };
    const std::optional<QFont> font = skin.OptionsForm(OptionsItem::ButtonFont).font();
    setText(button,
            skin.isRead() ? ButtonColours{colour(OptionsItem::ButtonForeColour),
                                          colour(OptionsItem::ButtonShadowColour),
                                          colour(OptionsItem::ButtonDisabledColour),
                                          colour(OptionsItem::ButtonDisabledShadowColour)}
                          : ButtonColours(),
            font ? font : skin.DefaultButton(ButtonItem::Font).font());
    setSkins(button, states,
             [&](std::size_t i) { return skin.OptionsForm(after(OptionsItem::NormalSelect, i)).bitmap(); });
}

void dressInfoButton(SkinButton &button, clsSkinResourceNew &skin)
{
    setDefaultText(button, skin);
    setSkins(button, groupOfSix,
             [&](std::size_t i) { return skin.MessagingForm(after(PrivateItem::NormalInfo, i)).bitmap(); });
}

void dressSystemButton(SkinButton &button, clsSkinResourceNew &skin, FormItem normal)
{
    constexpr std::array states = {ButtonState::Normal, ButtonState::Over, ButtonState::Clicked};
    setSkins(button, states, [&](std::size_t i) { return skin.FormDefaults(after(normal, i)).bitmap(); });
    if (!button.isFinished()) {
        button.resize(0, 0); // the title strip has no place for it
    }
}

void dressMenu(QMenu &menu, const clsSkinResourceNew &skin)
{
    auto *title = new QLabel(menu.title());
    title->setTextFormat(Qt::PlainText); // it may hold a stranger's id
    title->setAlignment(Qt::AlignCenter);
    title->setContentsMargins(12, 4, 12, 4);
    if (skin.isRead()) {
        const auto colour = [&](MenuItem item) { return toColor(skin.PopupMenu(item).colour()); };
        QPalette palette(colour(MenuItem::BackColour), colour(MenuItem::BackColour));
        for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
            palette.setColor(role, colour(MenuItem::TextColour));
            palette.setColor(QPalette::Disabled, role, colour(MenuItem::TextDisabledColour));
        }
        palette.setColor(QPalette::Base, colour(MenuItem::BackColour));
        palette.setColor(QPalette::Highlight, colour(MenuItem::GradientColour));
        palette.setColor(QPalette::HighlightedText, colour(MenuItem::TextHighlightColour));
        menu.setPalette(palette);
        palette.setColor(QPalette::Window, colour(MenuItem::HeaderBackColour));
        palette.setColor(QPalette::WindowText, colour(MenuItem::HeaderTextColour));
        title->setPalette(palette);
        title->setAutoFillBackground(true);
        menu.setFont(skin.PopupMenu(MenuItem::Font).font().value_or(QFont()));
        title->setFont(menu.font());
    }
    auto *header = new QWidgetAction(&menu);
    header->setDefaultWidget(title); // which it owns from now on
    header->setEnabled(false);
    menu.addAction(header);
}

void dressFrame(SkinFrame &frame, const clsSkinResourceNew &skin)
{
    frame.BackColor = skin.isRead() ? skin.Frame(FrameItem::BackColour).colour() : SkinFrame::systemBackColor;
    for (std::size_t i = 0; i < 8; ++i) {
        frame.SetSkin(after(FramePiece::TopLeft, i), skin.Frame(after(FrameItem::TopLeft, i)).bitmap());
    }
    frame.Refresh();
}
