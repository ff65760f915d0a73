#pragma once

#include "room/message_kind.h"

#include <QString>

/// A message as the lines of plain text that stand for it on the board. Line ends inside a name show as
/// spaces, those inside a text as indented lines, so that nobody's words can pose as another message.
[[nodiscard]] QString boardText(const QString &text, MessageKind kind, const QString &name,
                                const QString &otherName);
