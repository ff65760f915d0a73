#include "link/xml_codec.h"

#include <QHash>
#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <optional>
#include <unordered_set>

namespace {

constexpr QStringView contentName = u"cnode";

/// Up to here a repeated name is looked for among the parts themselves, beyond it in a set.
constexpr qsizetype fewParts = 16;

/// The first character that is the stop or a backslash, or the end.
const char16_t *findStop(const char16_t *at, const char16_t *end, char16_t stop)
{
    while (at != end && *at != stop && *at != u'\\') {
        ++at;
    }
    return at;
}

/// The first stop that is not escaped, or the end; says whether there are escapes before it.
const char16_t *findUnescaped(const char16_t *at, const char16_t *end, char16_t stop, bool &escapes)
{
    at = findStop(at, end, stop);
    while (at != end && *at == u'\\') {
        escapes = true;
        at = findStop(std::min(at + 2, end), end, stop);
    }
    return at;
}

/// Copies the text without the backslashes that escape; returns where the copy ends.
char16_t *unescapeTo(QStringView text, char16_t *out)
{
    const char16_t *at = text.utf16();
    const char16_t *const end = at + text.size();
    while (at != end) {
        const char16_t *const escape = std::find(at, end, u'\\');
        out = std::copy(at, escape, out);
        at = escape;
        if (end - escape >= 2) {
            *out++ = escape[1];
        }
        at += std::min(end - escape, std::ptrdiff_t(2));
    }
    return out;
}

constexpr auto escapedCharacters = [] {
    std::array<bool, 128> table{};
    for (const char16_t c : {u'\\', u'/', u'>', u'=', u'"', u'<'}) {
        table[c] = true;
    }
    return table;
}();

/// Writes text into memory that grows in large steps; what is appended is copied once more, into the result.
class TextWriter
{
public:
    void append(QStringView text)
    {
        ensure(text.size());
        std::copy_n(text.utf16(), text.size(), m_text.data() + m_size);
        m_size += text.size();
    }

    void appendEscaped(QStringView text)
    {
        ensure(2 * text.size());
        char16_t *out = m_text.data() + m_size;
        for (const QChar c : text) {
            if (c.unicode() < escapedCharacters.size() && escapedCharacters[c.unicode()]) {
                *out++ = u'\\';
            }
            *out++ = c.unicode();
        }
        m_size = out - m_text.data();
    }

    [[nodiscard]] QString text() const { return QStringView(m_text.data(), m_size).toString(); }

private:
    void ensure(qsizetype more)
    {
        if (m_size + more > m_text.size()) {
            m_text.resize(2 * (m_size + more));
        }
    }

    QVarLengthArray<char16_t, 1024> m_text = QVarLengthArray<char16_t, 1024>(1024);
    qsizetype m_size = 0;
};

void writeElement(TextWriter &out, const clsXMLMessage &element)
{
    out.append(u"<");
    out.append(element.MsgName);
    const clsXMLPart *content = nullptr;
    for (const clsXMLPart &part : element.XMLParts) {
        if (part.PartName == contentName) {
            content = &part;
            continue;
        }
        out.append(u" ");
        out.append(part.PartName);
        out.append(u"=\"");
        out.appendEscaped(part.PartValue);
        out.append(u"\"");
    }
    if (content == nullptr && element.XMLMessage.Count() == 0) {
        out.append(u"/>");
        return;
    }
    out.append(u">");
    for (const clsXMLMessage &child : element.XMLMessage) {
        writeElement(out, child);
    }
    if (content != nullptr) {
        out.appendEscaped(content->PartValue);
    }
    out.append(u"</");
    out.append(element.MsgName);
    out.append(u">");
}

struct HashName
{
    std::size_t operator()(QStringView name) const { return qHash(name); }
};

/// Tells whether an attribute's name is new to its element. Among a few parts it looks at each; many are put
/// into a set, so that a message of nothing but attributes takes no longer than any other.
class NameCheck
{
public:
    [[nodiscard]] bool isNew(const colXMLParts &parts, QStringView name)
    {
        if (parts.Count() < fewParts) {
            return std::ranges::none_of(parts,
                                        [&](const clsXMLPart &part) { return isSame(part.PartName, name); });
        }
        if (!m_names) {
            m_names.emplace();
            for (const clsXMLPart &part : parts) {
                m_names->insert(part.PartName);
            }
        }
        return m_names->insert(name).second;
    }

private:
    /// Names are short and mostly differ in length or in their first character.
    static bool isSame(QStringView a, QStringView b)
    {
        return a.size() == b.size() && a.front() == b.front() && a == b;
    }

    std::optional<std::unordered_set<QStringView, HashName>> m_names;
};

} // namespace

/// Reads one element at a time; the position counts characters from the start of the text.
class XMLParser
{
public:
    XMLParser(QStringView text, qsizetype start) : m_begin(text.utf16()), m_end(m_begin + text.size())
    {
        m_at = m_begin + std::clamp(start, qsizetype(0), text.size());
    }

    [[nodiscard]] bool parseElement(clsXMLMessage &element, int depth);

    /// Counted from 1; 0 when a closing ">" is missing.
    [[nodiscard]] qsizetype position() const { return m_at == nullptr ? 0 : m_at - m_begin + 1; }

private:
    [[nodiscard]] bool parseAttributes(clsXMLMessage &element);
    [[nodiscard]] bool parseChildren(clsXMLMessage &element, int depth);
    [[nodiscard]] std::optional<QStringView> parseValue(XMLArena &arena);
    void parseContent(clsXMLMessage &element, clsXMLPart *&content);
    [[nodiscard]] bool findClosing();
    [[nodiscard]] static QStringView unescaped(QStringView raw, XMLArena &arena);

    [[nodiscard]] bool atEnd() const { return m_at == m_end; }

    const char16_t *m_begin;
    const char16_t *m_end;
    const char16_t *m_at;
};

bool XMLParser::parseElement(clsXMLMessage &element, int depth)
{
    if (atEnd() || *m_at != u'<' || depth > maximumDepth) {
        m_at += atEnd() ? 0 : 1;
        return false;
    }
    const char16_t *const name = ++m_at;
    m_at = std::find_if(name, m_end, [](char16_t c) { return c == u'/' || c == u' ' || c == u'>'; });
    element.MsgName = QStringView(name, m_at);
    if (element.MsgName.isEmpty() || atEnd() || !parseAttributes(element)) {
        return false;
    }
    if (*m_at == u'/') {
        return findClosing();
    }
    return *m_at == u'>' && parseChildren(element, depth);
}

/// On success the position is on the character behind the attributes, which is there.
bool XMLParser::parseAttributes(clsXMLMessage &element)
{
    NameCheck names;
    while (*m_at == u' ') {
        const char16_t *start = ++m_at;
        m_at = std::find(start, m_end, u'=');
        const QStringView name(start, m_at);
        if (atEnd() || ++m_at == m_end || *m_at != u'"') {
            return false;
        }
        ++m_at;
        const auto value = parseValue(*element.XMLParts.m_arena);
        if (!value || (!name.isEmpty() && !names.isNew(element.XMLParts, name))) {
            return false;
        }
        element.XMLParts.append(name, *value, name);
        if (atEnd()) {
            return false;
        }
    }
    return true;
}

/// Starts behind the opening quote and ends behind the closing one.
std::optional<QStringView> XMLParser::parseValue(XMLArena &arena)
{
    bool escapes = false;
    const char16_t *const end = findUnescaped(m_at, m_end, u'"', escapes);
    const QStringView raw(m_at, end);
    m_at = end;
    if (atEnd()) {
        return std::nullopt;
    }
    ++m_at;
    return escapes ? unescaped(raw, arena) : raw;
}

/// Starts on the ">" of the opening tag and ends on the last character of the element, or behind the text
/// when that ends first: an element that is not closed is complete.
bool XMLParser::parseChildren(clsXMLMessage &element, int depth)
{
    ++m_at;
    clsXMLPart *content = element.XMLParts.Item(contentName);
    parseContent(element, content);
    while (!atEnd()) {
        if (m_at + 1 != m_end && m_at[1] == u'/') {
            return findClosing();
        }
        if (!parseElement(element.XMLMessage.append(u"Tmp", {}), depth + 1)) {
            return false;
        }
        m_at += atEnd() ? 0 : 1;
        parseContent(element, content);
    }
    return true;
}

/// Leaves the position on the next "<" that is not escaped, or at the end. The content is the element's part
/// for its text, null until there is one.
void XMLParser::parseContent(clsXMLMessage &element, clsXMLPart *&content)
{
    bool escapes = false;
    const char16_t *const end = findUnescaped(m_at, m_end, u'<', escapes);
    const QStringView raw(m_at, end);
    const QStringView text = escapes ? unescaped(raw, *element.XMLParts.m_arena) : raw;
    m_at = end;
    if (text.isEmpty()) {
        return;
    }
    if (content != nullptr) {
        content->PartValue = text;
    } else {
        content = element.XMLParts.append(contentName, text, contentName);
    }
}

bool XMLParser::findClosing()
{
    m_at = std::find(m_at, m_end, u'>');
    if (atEnd()) {
        m_at = nullptr;
        return false;
    }
    return true;
}

QStringView XMLParser::unescaped(QStringView raw, XMLArena &arena)
{
    auto *text = arena.room<char16_t>(static_cast<std::size_t>(raw.size()));
    return {text, unescapeTo(raw, text)};
}

bool ParseElement(QStringView text, clsXMLMessage &element, qsizetype &position)
{
    XMLParser parser(text, position - 1);
    const bool parsed = parser.parseElement(element, 1);
    position = parsed ? qMin(parser.position(), text.size()) : parser.position();
    return parsed;
}

QString BuildXML(const clsXMLMessage &element)
{
    TextWriter writer;
    writeElement(writer, element);
    return writer.text();
}

QString EscapeXML(QStringView text)
{
    TextWriter writer;
    writer.appendEscaped(text);
    return writer.text();
}

QString UnescapeXML(QStringView text)
{
    QString plain(text.size(), Qt::Uninitialized);
    auto *start = reinterpret_cast<char16_t *>(plain.data());
    plain.truncate(unescapeTo(text, start) - start);
    return plain;
}
