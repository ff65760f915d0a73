#include "emotions/clsEmoticons.h"

#include <QLocale>

#include <utility>

namespace {

constexpr std::pair<QStringView, QStringView> builtIn[] = {
    {u":)", u"Happy"},        {u";)", u"Wink"},        {u":(", u"Sad"},        {u":@", u"Angry"},
    {u":[", u"Bored"},        {u":D", u"Excited"},     {u":>", u"Chatty"},     {u":}", u"Chillin"},
    {u":{", u"Depressed"},    {u"(h)", u"Cool"},       {u":$", u"Embarrased"}, {u":g", u"Gasp"},
    {u":|", u"Indifferent"},  {u":p", u"Nyah"},        {u":q", u"Nyeh"},       {u":n", u"Silly"},
    {u":o", u"Suprised"},     {u":u", u"Unimpressed"}, {u":w", u"Worried"},    {u":d", u"Yum"},
    {u":s", u"Tongue Tied"},  {u"o:", u"Angel"},       {u">:", u"Pylox"},      {u"<3", u"Heart"},
    {u"x3", u"Heart Broken"}, {u"(?)", u"Question"},   {u":x", u"Kiss"},       {u"(@)", u"Cat"},
    {u"(&)", u"Dog"},         {u"(c)", u"Coffee"},     {u"(^)", u"Gift"},
};

QString folded(const QString &text)
{
    return QLocale().toLower(text);
}

/// Hands out the lines that count, one after the other.
class Lines
{
public:
    explicit Lines(QStringView text) : m_rest(text) {}

    /// False at the end.
    [[nodiscard]] bool next(QStringView &line)
    {
        while (!m_rest.isEmpty()) {
            qsizetype end = 0;
            while (end < m_rest.size() && m_rest[end] != u'\r' && m_rest[end] != u'\n') {
                ++end;
            }
            line = m_rest.first(end);
            const bool pair = end + 1 < m_rest.size() && m_rest[end] == u'\r' && m_rest[end + 1] == u'\n';
            m_rest = m_rest.sliced(qMin(end + (pair ? 2 : 1), m_rest.size()));
            if (!isComment(line)) {
                return true;
            }
        }
        return false;
    }

private:
    static bool isComment(QStringView line)
    {
        qsizetype first = 0;
        while (first < line.size() && line[first] == u' ') {
            ++first;
        }
        return first < line.size() && line[first] == u'#';
    }

    QStringView m_rest;
};

} // namespace

clsEmoticons::clsEmoticons(QStringView emoticonFile)
{
    for (const auto &[key, name] : builtIn) {
        AddEmoticon(key.toString(), name.toString());
    }
    LoadEmoticonFile(emoticonFile);
}

void clsEmoticons::AddEmoticon(const QString &key, const QString &name)
{
    if (const auto same = m_rowsByKey.constFind(key); same != m_rowsByKey.cend()) {
        m_rows[*same].Name = name;
        return;
    }
    const qsizetype row = m_rows.size();
    const QString foldedKey = folded(key);
    const qsizetype first = m_rowsByFoldedKey.value(foldedKey, row);
    const bool caseSensitive = first != row;
    if (caseSensitive) {
        m_rows[first].CaseSensitive = true; // the others with this key in lower case are so already
    } else {
        m_rowsByFoldedKey.insert(foldedKey, row);
    }
    m_rowsByKey.insert(key, row);
    noteStart(key);
    m_rows.append({key, name, caseSensitive});
    m_longestKey = qMax(m_longestKey, key.size());
}

void clsEmoticons::LoadEmoticonFile(QStringView text)
{
    Lines lines(text);
    QStringView key;
    QStringView name;
    while (lines.next(key) && lines.next(name)) {
        AddEmoticon(key.toString(), name.toString());
    }
}

/// Most words do not begin like any code and need no folding. The lower case of a letter outside ASCII may be
/// one inside it, and the other way round; a code that begins with one switches this off.
void clsEmoticons::noteStart(const QString &key)
{
    if (key.isEmpty()) {
        return;
    }
    const char16_t start = key.front().unicode();
    if (start >= m_starts.size()) {
        m_starts.set();
    } else {
        m_starts.set(start);
        m_starts.set(key.front().toLower().unicode());
        m_starts.set(key.front().toUpper().unicode());
    }
}

QString clsEmoticons::CheckEmotion(QStringView text) const
{
    if (text.size() > 2 * m_longestKey) { // no letter's lower case is less than half as long
        return {};
    }
    if (!text.isEmpty() && text.front().unicode() < m_starts.size() && !m_starts[text.front().unicode()]) {
        return {};
    }
    const QString key = text.toString();
    if (const auto same = m_rowsByKey.constFind(key); same != m_rowsByKey.cend()) {
        return m_rows[*same].Name;
    }
    const auto first = m_rowsByFoldedKey.constFind(folded(key));
    return first != m_rowsByFoldedKey.cend() && !m_rows[*first].CaseSensitive ? m_rows[*first].Name
                                                                              : QString();
}

QString clsEmoticons::GetKeyFromEmotion(QStringView emotion) const
{
    for (const EmoticonEntry &entry : m_rows) {
        if (entry.Name == emotion) {
            return entry.Key;
        }
    }
    return {};
}
