// Pylox.ini, which the messenger shares: whatever lies there, a value that is written under any section, ids
// of strangers among them, is read back, and every other line stays as it was.

#include "platform/settings_file.h"
#include "user_file.h"

#include <algorithm>

namespace {

/// Without byte order marks: where there are several, each writing takes one away.
QStringList linesIn(const QString &file)
{
    QString text = readTextFile(file).value_or(QString());
    while (text.startsWith(QChar::ByteOrderMark)) {
        text.remove(0, 1);
    }
    return text.split(u'\n');
}

/// A value is one line, and spaces around it are not kept.
QString stored(const QString &value)
{
    QString line = value;
    return line.replace(u'\n', u' ').replace(u'\r', u' ').trimmed();
}

/// One line is another one now, or new; or a section is, at the end.
void checkOthers(const QStringList &before, const QStringList &after)
{
    const qsizetype same = std::ranges::mismatch(before, after).in1 - before.begin();
    const qsizetype added = after.size() - before.size();
    if (added <= 1) {
        require(added >= 0);
        require(same == before.size() || before.mid(same + 1 - added) == after.mid(same + 1));
    } else {
        require(added <= 4 && same >= before.size() - 1 && after.last().isEmpty());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    Input input(data, size);
    const QString section = QString::fromUtf8(input.part());
    const QString key = u'K' + QString::fromUtf8(input.part()); // keys are the programs' own
    const QString value = QString::fromUtf8(input.part());
    SettingsFile settings;
    settings.FileName = scratchFile(QStringLiteral("Pylox.ini"));
    putFile(settings.FileName, input.rest());
    const QStringList before = linesIn(settings.FileName);
    const QString otherPort =
        settings.ReadValue(QStringLiteral("Port"), QStringLiteral("0"), QStringLiteral("Chat"));

    require(settings.WriteValue(key, value, section));
    require(settings.ReadValue(key, QStringLiteral("none"), section) == stored(value));
    require(settings.ReadValue(QStringLiteral("Port"), QStringLiteral("0"), QStringLiteral("Chat")) ==
            otherPort);
    const QStringList after = linesIn(settings.FileName);
    checkOthers(before, after);
    require(settings.WriteValue(key, value, section) && linesIn(settings.FileName) == after);
    return 0;
}
