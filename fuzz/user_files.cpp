// The options file and the lists file: whatever lies there is read, written and read again, and nothing is
// lost on the way. People whom a messenger of ill will named get into the lists by the menus; they must come
// back one for one.

#include "core/lists_text.h"
#include "core/options_text.h"
#include "user_file.h"

namespace {

void checkOptions(const QString &text)
{
    const SavedOptions read = readOptions(text, {});
    const QString written = optionsText(read);
    const SavedOptions again = readOptions(written, {});
    require(optionsText(again) == written && again.unknownLines == read.unknownLines);
    require(again.options.UNTC == read.options.UNTC && again.options.HIGHLIGHT == read.options.HIGHLIGHT);
    require(again.options.WORDFILER == read.options.WORDFILER);
    require(again.options.AcceptMode == read.options.AcceptMode);
    require(again.font.bold == read.font.bold && again.font.size >= 1 && again.font.size <= 200);
}

/// The last part of an input is the lists file; those in front of it are ids and names, two a person.
UserLists namedLists(Input &input)
{
    UserLists lists;
    for (unsigned char people = input.byte() % 8; people > 0; --people) {
        const char16_t code = u"AIP"[input.byte() % 3];
        const QString id = QString::fromUtf8(input.part());
        AddToList(lists, code, id, QString::fromUtf8(input.part()));
    }
    return lists;
}

/// What the file can hold of an id.
QString storedId(const ListedUser &user)
{
    return QString(user.id).replace(u'\n', u' ').replace(u'\r', u' ').left(10).trimmed();
}

qsizetype countOf(const UserList &list)
{
    QStringList ids;
    for (const ListedUser &user : list) {
        ids += storedId(user);
    }
    ids.removeDuplicates();
    return ids.size();
}

void checkLists(const UserLists &lists, const QStringList &unknown)
{
    const QString written = listsText(lists, unknown);
    UserLists again;
    require(readLists(written, again) == unknown);
    require(listsText(again, unknown) == listsText(again, readLists(written, again)));
    require(again.AcceptList.size() == countOf(lists.AcceptList));
    require(again.IgnoreList.size() == countOf(lists.IgnoreList));
    require(again.PyloxContacts.size() == countOf(lists.PyloxContacts));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    Input input(data, size);
    checkOptions(userFile(input.rest()));
    checkLists(namedLists(input), {});
    UserLists lists;
    const QStringList unknown = readLists(userFile(input.rest()), lists);
    checkLists(lists, unknown);
    return 0;
}
