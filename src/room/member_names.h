#pragma once

#include "core/shared_state.h"
#include "room/clsChatters.h"
#include "room/message_text.h"

/// The name under which a person is shown, on one line: the messenger contact's name, else the nickname; the
/// id in the place of a name that cannot be seen.
[[nodiscard]] inline QString displayName(const clsChatters &member, const SharedState &state)
{
    const QString name = GetContactName(state.lists, member.ID, member.Nickname);
    const QString shown = oneLine(name);
    return shown.trimmed().isEmpty() && !name.isEmpty() ? oneLine(member.ID) : shown;
}
