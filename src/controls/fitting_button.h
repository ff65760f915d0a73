#pragma once

#include "skin/skin_items.h"

#include <initializer_list>

class QString;
class SkinButton;
class clsSkinResourceNew;

/// The ordinary button; its pictures are made wider in their middle where its caption needs more room.
/// Without a skin it has the size that the desktop gives it.
void dressFittingButton(SkinButton &button, const clsSkinResourceNew &skin);

/// A button of the room window by the first item of its pictures, and the item of its caption.
struct RoomButton
{
    SkinButton *button;
    RoomItem pictures;
    RoomItem text;
};

/// Buttons of the room window that stand below each other: their pictures are made wider alike where a
/// caption would come too near to an end of one, or to a sign in it.
void dressFittingColumn(std::initializer_list<RoomButton> column, const clsSkinResourceNew &skin);

/// A button with a sign, by the pictures of those that format what is typed; an ordinary one with its own
/// caption where the skin has none.
void dressSignButton(SkinButton &button, const clsSkinResourceNew &skin, const QString &sign);

/// A button that has no skin gets its size from its caption.
void sizeUndressed(SkinButton &button);
