#pragma once

#include "core/user_lists.h"

#include <QString>
#include <QStringList>

/// The file of the accept and ignore lists and of the contacts as text: one entry a line, "A-", "I-" or "P-",
/// the id in a field of 11 characters, then the name; lines end with CR LF. Removed entries are not in it.
/// Lines that readLists() did not know follow as they were.
[[nodiscard]] QString listsText(const UserLists &lists, const QStringList &unknownLines);

/// Adds the entries of such a text to the lists; ids that are there already stay as they are. Gives back the
/// lines that name no list.
QStringList readLists(QStringView text, UserLists &lists);

/// The file's name in the application folder.
inline constexpr char16_t listsFileName[] = u"ChatList.dat";
