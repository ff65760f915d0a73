#include "core/lists_text.h"

namespace {

constexpr qsizetype idColumn = 2;
constexpr qsizetype idLength = 10;
constexpr qsizetype idField = 11;
constexpr qsizetype nameColumn = idColumn + idField;

void appendList(QString &text, QChar code, const UserList &list)
{
    for (const ListedUser &user : list) {
        if (user.id.trimmed().isEmpty()) {
            continue;
        }
        text += code;
        text += u'-';
        text += user.id.leftJustified(idField, u' ', true);
        text += QString(user.name).replace(u'\r', u' ').replace(u'\n', u' ');
        text += u"\r\n";
    }
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
    QStringList unknown;
    for (QStringView line : text.split(u'\n')) {
        line = line.endsWith(u'\r') ? line.chopped(1) : line;
        if (line.trimmed().isEmpty()) {
            continue;
        }
        const char16_t code = line[0].unicode();
        if (lists.withCode(code) == nullptr) {
            unknown.append(line.toString());
            continue;
        }
        const QStringView rest = line.sliced(qMin(idColumn, line.size()));
        AddToList(lists, code, rest.first(qMin(idLength, rest.size())).trimmed().toString(),
                  line.sliced(qMin(nameColumn, line.size())).toString());
    }
    return unknown;
}
