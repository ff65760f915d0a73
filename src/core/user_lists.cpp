#include "core/user_lists.h"

#include <algorithm>

namespace {

/// The end of the list stands for "nobody": the empty id belongs to removed entries.
template <typename List>
auto findUser(List &list, const QString &id)
{
    return id.isEmpty() ? list.end() : std::find_if(list.begin(), list.end(), [&](const ListedUser &user) {
        return user.id == id;
    });
}

} // namespace

UserList emptyUserList()
{
    return {ListedUser{}};
}

UserList *UserLists::withCode(char16_t listCode)
{
    switch (listCode) {
    case u'A':
        return &AcceptList;
    case u'I':
        return &IgnoreList;
    case u'P':
        return &PyloxContacts;
    default:
        return nullptr;
    }
}

void AddToList(UserLists &lists, char16_t listCode, const QString &id, const QString &name)
{
    UserList *list = lists.withCode(listCode);
    if (list != nullptr && !id.isEmpty() && !IsInList(*list, id)) {
        list->append({id, name});
    }
}

void RemoveFromList(UserLists &lists, char16_t listCode, const QString &id)
{
    UserList *list = lists.withCode(listCode);
    if (list == nullptr) {
        return;
    }
    if (const auto user = findUser(*list, id); user != list->end()) {
        user->id.clear();
    }
}

bool IsInList(const UserList &list, const QString &id)
{
    return findUser(list, id) != list.end();
}

bool IsPyloxContact(const UserLists &lists, const QString &id)
{
    return IsInList(lists.PyloxContacts, id);
}

QString GetContactName(const UserLists &lists, const QString &id, const QString &defaultName)
{
    const auto contact = findUser(lists.PyloxContacts, id);
    return contact != lists.PyloxContacts.end() ? contact->name : defaultName;
}
