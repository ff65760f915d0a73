#include "core/attribute_text.h"

QStringList itemsOf(const QString &message)
{
    constexpr qsizetype most = 1000;
    QStringList items;
    for (qsizetype start = 0, end = 0; items.size() < most && (end = message.indexOf(itemEnd, start)) >= 0;
         start = end + 1) {
        items += message.sliced(start, end - start);
    }
    return items;
}

QString withoutControlCharacters(QStringView text)
{
    QString clean = text.toString();
    clean.removeIf([](QChar c) { return c.category() == QChar::Other_Control && c != u'\t'; });
    return clean;
}

QString GetAttribute(QStringView text, QStringView key, const QString &defaultValue)
{
    const qsizetype at = text.indexOf(key);
    const qsizetype start = at + key.size();
    const qsizetype end = at < 0 ? -1 : text.indexOf(valueEnd, start);
    return end < 0 ? defaultValue : text.sliced(start, end - start).toString();
}
