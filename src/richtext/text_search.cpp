#include "richtext/text_search.h"

#include <QStringMatcher>

std::optional<FoundText> findText(const RichDocument &document, const QString &words,
                                  RichDocument::Place from, bool backwards)
{
    if (words.isEmpty()) {
        return std::nullopt;
    }
    const QStringMatcher matcher(words, Qt::CaseInsensitive);
    const qsizetype step = backwards ? -1 : 1;
    for (qsizetype index = from.paragraph; index >= 0 && index < document.paragraphCount(); index += step) {
        const QStringView text = document.paragraph(index).text();
        const bool first = index == from.paragraph;
        qsizetype found = matcher.indexIn(text, first && !backwards ? from.offset : 0);
        if (backwards) {
            const qsizetype limit = (first ? from.offset : text.size()) - words.size();
            qsizetype last = -1;
            while (found >= 0 && found <= limit) {
                last = found;
                found = matcher.indexIn(text, found + 1);
            }
            found = last;
        }
        if (found >= 0) {
            return FoundText{{index, found}, words.size()};
        }
    }
    return std::nullopt;
}

QList<qsizetype> findAll(QStringView paragraph, const QString &words)
{
    QList<qsizetype> found;
    if (!words.isEmpty()) {
        const QStringMatcher matcher(words, Qt::CaseInsensitive);
        for (qsizetype at = matcher.indexIn(paragraph); at >= 0;
             at = matcher.indexIn(paragraph, at + words.size())) {
            found += at;
        }
    }
    return found;
}
