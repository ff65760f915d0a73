#pragma once

#include "core/shared_state.h"
#include "room/clsChatters.h"
#include "room/message_text.h"

#include <QHash>

/// The name under which a person is shown, on one line: the given one; the id in the place of a name that
/// cannot be seen.
[[nodiscard]] inline QString shownAs(const QString &name, const clsChatters &member)
{
    const QString shown = oneLine(name);
    return shown.trimmed().isEmpty() && !name.isEmpty() ? oneLine(member.ID) : shown;
}

/// The messenger contact's name, else the nickname.
[[nodiscard]] inline QString displayName(const clsChatters &member, const SharedState &state)
{
    return shownAs(GetContactName(state.lists, member.ID, member.Nickname), member);
}

/// The same for many members at once: the contacts are gone through once.
class DisplayNames
{
public:
    explicit DisplayNames(const SharedState &state)
    {
        for (const ListedUser &contact : state.lists.PyloxContacts) {
            if (!contact.id.isEmpty() && !m_contacts.contains(contact.id)) {
                m_contacts.insert(contact.id, contact.name);
            }
        }
    }

    [[nodiscard]] QString of(const clsChatters &member) const
    {
        return shownAs(m_contacts.value(member.ID, member.Nickname), member);
    }

private:
    QHash<QString, QString> m_contacts;
};
