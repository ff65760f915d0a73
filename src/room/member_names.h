#pragma once

#include "core/shared_state.h"
#include "core/shown_name.h"
#include "room/clsChatters.h"

/// The name under which a person is shown: the messenger contact's name, else the nickname; the id in the
/// place of a name that cannot be seen.
[[nodiscard]] inline QString displayName(const clsChatters &member, const SharedState &state)
{
    const QString name = GetContactName(state.lists, member.ID, member.Nickname);
    const QString shown = shownName(name);
    return shown.isEmpty() && !name.isEmpty() ? member.ID : shown;
}
