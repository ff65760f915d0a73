#pragma once

#include "messenger/user.h"

#include <QList>

namespace messenger {

/// The users of a table, and what was wrong with it: one text a line that was skipped.
struct UserTable
{
    QList<User> users;
    QStringList problems;
};

/// One user a line: id, tab, nickname, and perhaps a tab and the status, a tab and the mood. Empty lines and
/// lines that begin with "#" count for nothing.
[[nodiscard]] UserTable parseUsers(const QString &text);

} // namespace messenger
