// The emoticon table: whatever lies there as Emoticon.dat. Each row must be found by its own code, and no
// code twice.

#include "emotions/clsEmoticons.h"
#include "fuzzing.h"
#include "user_file.h"

#include <QHash>
#include <QLocale>
#include <QSet>

namespace {

void checkRows(const clsEmoticons &table)
{
    QSet<QString> keys;
    QHash<QString, bool> caseSensitive; // by the key in lower case
    for (const EmoticonEntry &row : table.Rows()) {
        require(!keys.contains(row.Key));
        keys.insert(row.Key);
        const QString folded = QLocale().toLower(row.Key);
        if (const auto other = caseSensitive.constFind(folded); other != caseSensitive.cend()) {
            require(*other && row.CaseSensitive);
        }
        caseSensitive.insert(folded, row.CaseSensitive);
        require(table.CheckEmotion(row.Key) == row.Name);
        require(table.CheckEmotion(table.GetKeyFromEmotion(row.Name)) == row.Name);
        require(row.CaseSensitive || table.CheckEmotion(folded) == row.Name);
    }
}

void checkLine(const clsEmoticons &table, QStringView line)
{
    const QString name = table.CheckEmotion(line);
    require(name.isEmpty() || table.CheckEmotion(table.GetKeyFromEmotion(name)) == name);
    const QString key = table.GetKeyFromEmotion(line);
    require(key.isEmpty() || table.CheckEmotion(key) == line);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const QString text = userFile(Input(data, size).rest());
    const clsEmoticons table(text);
    checkRows(table);
    for (const QStringView line : QStringView(text).split(u'\n')) {
        checkLine(table, line);
    }
    return 0;
}
