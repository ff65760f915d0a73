#pragma once

#include "core/keyed_collection.h"
#include "room/clsChatters.h"

/// The people in the room that the window shows, in the order of their coming, each under "C" and the id.
class colChatters : public KeyedCollection<clsChatters>
{
public:
    [[nodiscard]] static QString keyOf(QStringView id) { return u'C' + id.toString(); }

    /// A new record at the end; null, and nothing changed, when the id is already there.
    Pointer Add(const QString &id, const QString &nickname, qint32 status, qint32 mood, bool owner,
                const QString &invitedBy, const QDateTime &joined, bool pending, const QString &toUserId);

    /// A copy of the record at the end, not marked and not highlighted; null when the id is already there.
    Pointer AddObject(const clsChatters &source);

    /// A member of whom only the id is known yet; null when the id is already there.
    Pointer addUnknown(const QString &id);

    /// The record of the person with this id, or null.
    [[nodiscard]] Pointer withId(QStringView id) const { return Item(keyOf(id)); }
};
