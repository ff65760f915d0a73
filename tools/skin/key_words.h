#pragma once

#include "skin/skin_catalogue.h"
#include "tools/skin/authored_skin.h"

/// What authors are told about a key.

/// Whether the program cannot dress its windows or buttons without it.
[[nodiscard]] bool isNeeded(SkinKeyName name);

/// "is missing: ...", with what the program does in its place.
[[nodiscard]] QString whenMissing(SkinKeyName name, SkinKind kind);

/// Whether the colour may be "none".
[[nodiscard]] bool mayBeNoColour(SkinKeyName name);

/// The states of which a button has a picture each; a key begins with one and goes on with the button.
inline constexpr QStringView buttonStates[] = {u"Normal",   u"Over", u"Clicked", u"Disabled",
                                               u"HasFocus", u"Down", u"Mask"};

/// The state with which a picture's key begins; empty when it is none of a button.
[[nodiscard]] QStringView stateOf(SkinKeyName name);

/// Whether the program would find a number in it.
[[nodiscard]] bool startsWithNumber(const QString &text);
