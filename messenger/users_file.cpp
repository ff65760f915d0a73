#include "messenger/users_file.h"

#include "messenger/clean_text.h"

#include <QSet>

namespace messenger {

namespace {

constexpr qsizetype maximumUsers = 1'000;

/// The number in the field, or the default without one; wrong is set when it is no number.
qint32 numberIn(const QStringList &fields, qsizetype index, qint32 otherwise, bool &wrong)
{
    if (index >= fields.size()) {
        return otherwise;
    }
    bool isNumber = false;
    const int number = fields[index].trimmed().toInt(&isNumber);
    wrong = wrong || !isNumber || number < 0;
    return number;
}

/// What is wrong with the line; empty when nothing is, and the user is filled.
QString parseLine(const QString &line, User &user)
{
    const QStringList fields = line.split(u'\t');
    if (fields.size() < 2 || fields.size() > 4) {
        return QStringLiteral("an id, a nickname and at most two numbers are needed, with tabs between them");
    }
    user.id = cleanName(fields[0].trimmed());
    user.nickname = cleanName(fields[1].trimmed());
    if (user.id.isEmpty() || user.nickname.isEmpty()) {
        return QStringLiteral("the id or the nickname is empty");
    }
    bool wrong = false;
    user.status = numberIn(fields, 2, statusOnline, wrong);
    user.mood = numberIn(fields, 3, moodHappy, wrong);
    return wrong ? QStringLiteral("status and mood must be numbers from 0") : QString();
}

/// Guests and hosts have ids of their own kind, which nobody else may take.
bool isReserved(const QString &id)
{
    bool isNumber = false;
    id.sliced(1).toInt(&isNumber);
    return isNumber && (id.startsWith(u'g') || id.startsWith(u'h'));
}

} // namespace

UserTable parseUsers(const QString &text)
{
    UserTable table;
    QSet<QString> ids;
    int number = 0;
    for (QStringView raw : QStringView(text).split(u'\n')) {
        ++number;
        if (raw.endsWith(u'\r')) {
            raw.chop(1);
        }
        if (raw.trimmed().isEmpty() || raw.startsWith(u'#')) {
            continue;
        }
        User user;
        QString problem = parseLine(raw.toString(), user);
        if (problem.isEmpty() && (isReserved(user.id) || ids.contains(user.id))) {
            problem = QStringLiteral("the id is taken");
        }
        if (problem.isEmpty() && table.users.size() == maximumUsers) {
            problem = QStringLiteral("too many users");
        }
        if (!problem.isEmpty()) {
            table.problems.append(u"line " % QString::number(number) % u": " % problem);
            continue;
        }
        ids.insert(user.id);
        table.users.append(user);
    }
    return table;
}

} // namespace messenger
