#pragma once

#include <QList>
#include <QString>

/// One entry of a user list. An entry that was removed keeps its slot and its name, with an empty id.
struct ListedUser
{
    QString id;
    QString name;

    friend bool operator==(const ListedUser &, const ListedUser &) = default;
};

/// Users in the order in which they were added. Index 0 holds an empty pair that is never used, except in
/// the contacts: these are rebuilt from index 0 upwards.
using UserList = QList<ListedUser>;

/// A list as it is when nobody is in it.
[[nodiscard]] UserList emptyUserList();

/// The three lists that all windows share.
struct UserLists
{
    UserList AcceptList = emptyUserList();
    UserList IgnoreList = emptyUserList();
    UserList PyloxContacts = emptyUserList();

    /// The list with this letter ("A", "I" or "P"), or null for any other.
    [[nodiscard]] UserList *withCode(char16_t listCode);
};

/// Appends (id, name) to the list with this letter. Nothing happens when the list already holds the id,
/// when the id is empty, or for an unknown letter.
void AddToList(UserLists &lists, char16_t listCode, const QString &id, const QString &name);

/// Empties the id of the first entry with this id; its name and slot stay. Nothing happens when there is
/// none.
void RemoveFromList(UserLists &lists, char16_t listCode, const QString &id);

/// True when the id is in the list. The empty id is in no list.
[[nodiscard]] bool IsInList(const UserList &list, const QString &id);

[[nodiscard]] bool IsPyloxContact(const UserLists &lists, const QString &id);

/// The name of the first contact with this id, else the default name.
[[nodiscard]] QString GetContactName(const UserLists &lists, const QString &id, const QString &defaultName);
