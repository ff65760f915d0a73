#pragma once

#include "skin/skin_items.h"

class QMenu;
class SkinButton;
class SkinFrame;
class clsSkinResourceNew;

/// How the skin's values come to the controls, the same in every window. Nothing stays of the skin that a
/// control had before; what the new one lacks is as it was without a skin.

/// The ordinary button: pictures, font and colours.
void dressButton(SkinButton &button, const clsSkinResourceNew &skin);

/// A button of the room window by the first item of its group; the ordinary pictures where the skin has none
/// of its own. Its caption is the skin's text, unless that is empty.
void dressRoomButton(SkinButton &button, const clsSkinResourceNew &skin, RoomItem normal, RoomItem text);

/// A button of the row that formats what is typed, with its own overlay; without one, with a letter.
void dressFormatButton(SkinButton &button, const clsSkinResourceNew &skin, RoomItem overlay);

/// The button that chooses a page of the options. The skin's pictures of it must have been loaded.
void dressSelectButton(SkinButton &button, clsSkinResourceNew &skin);

/// The button of a private window. The skin's pictures of it must have been acquired.
void dressInfoButton(SkinButton &button, clsSkinResourceNew &skin);

/// A button of the title strip, by the first of its three items; one without pictures has no size.
void dressSystemButton(SkinButton &button, clsSkinResourceNew &skin, FormItem normal);

/// A pop-up menu without entries: the skin's colours and font, and the menu's title as its first row.
void dressMenu(QMenu &menu, const clsSkinResourceNew &skin);

void dressFrame(SkinFrame &frame, const clsSkinResourceNew &skin);
