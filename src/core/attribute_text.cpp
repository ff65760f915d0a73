#include "core/attribute_text.h"

QString withoutControlCharacters(QStringView text)
{
    QString clean = text.toString();
    clean.removeIf([](QChar c) { return c < u' ' && c != u'\t'; });
    return clean;
}

QString GetAttribute(QStringView text, QStringView key, const QString &defaultValue)
{
    const qsizetype at = text.indexOf(key);
    const qsizetype start = at + key.size();
    const qsizetype end = at < 0 ? -1 : text.indexOf(valueEnd, start);
    return end < 0 ? defaultValue : text.sliced(start, end - start).toString();
}
