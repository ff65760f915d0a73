#pragma once

#include "core/shared_state.h"
#include "room/clsChatters.h"

/// The name under which a person is shown: the messenger contact's name, else the nickname.
[[nodiscard]] inline QString displayName(const clsChatters &member, const SharedState &state)
{
    return GetContactName(state.lists, member.ID, member.Nickname);
}
