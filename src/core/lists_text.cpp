#include "core/lists_text.h"

#include <QSet>

#include <utility>

namespace {

constexpr qsizetype idColumn = 2;
constexpr qsizetype idLength = 10;
constexpr qsizetype idField = 11;
constexpr qsizetype nameColumn = idColumn + idField;

/// A line end would begin another entry; ids and names are a stranger's.
QString onOneLine(QString text)
{
    return text.replace(u'\r', u' ').replace(u'\n', u' ');
}

void appendList(QString &text, QChar code, const UserList &list)
{
    for (const ListedUser &user : list) {
        const QString id = onOneLine(user.id);
        if (id.trimmed().isEmpty()) {
            continue;
        }
        text += code;
        text += u'-';
        text += id.leftJustified(idField, u' ', true);
        text += onOneLine(user.name);
        text += u"\r\n";
    }
}

QString keyOf(char16_t code, const QString &id)
{
    return QChar(code) + id;
}

QSet<QString> everybody(UserLists &lists)
{
    QSet<QString> keys;
    for (const char16_t code : {u'A', u'I', u'P'}) {
        for (const ListedUser &user : std::as_const(*lists.withCode(code))) {
            keys.insert(keyOf(code, user.id));
        }
    }
    return keys;
}

} // namespace

QString listsText(const UserLists &lists, const QStringList &unknownLines)
{
    QString text;
    appendList(text, u'A', lists.AcceptList);
    appendList(text, u'I', lists.IgnoreList);
    appendList(text, u'P', lists.PyloxContacts);
    for (const QString &line : unknownLines) {
        text += line + u"\r\n";
    }
    return text;
}

QStringList readLists(QStringView text, UserLists &lists)
{
    QSet<QString> known = everybody(lists); // to look through a long list for each line would take minutes
    QStringList unknown;
    for (QStringView line : text.split(u'\n')) {
        line = line.endsWith(u'\r') ? line.chopped(1) : line;
        if (line.trimmed().isEmpty()) {
            continue;
        }
        const char16_t code = line[0].unicode();
        UserList *list = lists.withCode(code);
        if (list == nullptr) {
            unknown.append(line.toString());
            continue;
        }
        const QStringView rest = line.sliced(qMin(idColumn, line.size()));
        const QString id = rest.first(qMin(idLength, rest.size())).trimmed().toString();
        if (!id.isEmpty() && !known.contains(keyOf(code, id))) {
            known.insert(keyOf(code, id));
            list->append({id, line.sliced(qMin(nameColumn, line.size())).toString()});
        }
    }
    return unknown;
}
