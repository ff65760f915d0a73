#pragma once

#include "skin/skin_items.h"

#include <memory>

class SkinButton;
class SkinFrame;
class SkinStorage;
class clsSkinResourceNew;

/// How the skin's values come to the controls, the same in every window. A control that had a skin gets the
/// new one in its place.

/// The ordinary button: pictures, font and colours.
void dressButton(SkinButton &button, const clsSkinResourceNew &skin);

/// A button of the room window by the first item of its group; the ordinary pictures where the skin has none
/// of its own. The caption becomes the skin's text, unless that is empty.
void dressRoomButton(SkinButton &button, const clsSkinResourceNew &skin, RoomItem normal, RoomItem text);

/// A button of the row that formats what is typed, with its own overlay.
void dressFormatButton(SkinButton &button, const clsSkinResourceNew &skin, RoomItem overlay);

/// The button that chooses a page of the options. The skin's pictures of it must have been loaded.
void dressSelectButton(SkinButton &button, clsSkinResourceNew &skin);

/// The button of a private window. The skin's pictures of it must have been acquired.
void dressInfoButton(SkinButton &button, clsSkinResourceNew &skin, std::unique_ptr<SkinStorage> &storage);

/// A button of the title strip, by the first of its three items.
void dressSystemButton(SkinButton &button, clsSkinResourceNew &skin, FormItem normal);

void dressFrame(SkinFrame &frame, const clsSkinResourceNew &skin);
