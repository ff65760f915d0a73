#include "link/xml_codec.h"

#include <QHash>

#include <algorithm>
#include <optional>
#include <unordered_set>

namespace {

constexpr QStringView contentName = u"cnode";

/// Up to here a repeated name is looked for among the parts themselves, beyond it in a set.
constexpr qsizetype fewParts = 16;

/// Drops each backslash that escapes the next character; returns where the output ends.
template <typename Output>
Output unescapeTo(QStringView text, Output output)
{
    bool escaped = false;
    for (const QChar c : text) {
        if (c == u'\\' && !escaped) {
            escaped = true;
            continue;
        }
        escaped = false;
        *output++ = c.unicode();
    }
    return output;
}

constexpr bool needsEscape(char16_t c)
{
    return c == u'\\' || c == u'/' || c == u'>' || c == u'=' || c == u'"' || c == u'<';
}

void appendEscaped(QString &out, QStringView text)
{
    const char16_t *at = text.utf16();
    const char16_t *const end = at + text.size();
    while (at != end) {
        const char16_t *plain = std::find_if(at, end, needsEscape);
        out += QStringView(at, plain);
        if (plain != end) {
            out += u'\\';
            out += QChar(*plain++);
        }
        at = plain;
    }
}

void appendElement(QString &out, const clsXMLMessage &element)
{
    out += u'<';
    out += element.MsgName;
    const clsXMLPart *content = nullptr;
    for (const clsXMLPart &part : element.XMLParts) {
        if (part.PartName == contentName) {
            content = &part;
            continue;
        }
        out += u' ';
        out += part.PartName;
        out += u"=\"";
        appendEscaped(out, part.PartValue);
        out += u'"';
    }
    if (content == nullptr && element.XMLMessage.Count() == 0) {
        out += u"/>";
        return;
    }
    out += u'>';
    for (const clsXMLMessage &child : element.XMLMessage) {
        appendElement(out, child);
    }
    if (content != nullptr) {
        appendEscaped(out, content->PartValue);
    }
    out += u"</";
    out += element.MsgName;
    out += u'>';
}

struct HashName
{
    std::size_t operator()(QStringView name) const { return qHash(name); }
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
    void parseContent(clsXMLMessage &element);
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
    const char16_t *name = ++m_at;
    while (!atEnd() && *m_at != u'/' && *m_at != u' ' && *m_at != u'>') {
        ++m_at;
    }
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
    std::unordered_set<QStringView, HashName> names; // filled only for an element with many attributes
    const auto isNew = [&](QStringView name) {
        if (element.XMLParts.Count() < fewParts) {
            return element.XMLParts.Item(name) == nullptr;
        }
        if (names.empty()) {
            for (const clsXMLPart &part : element.XMLParts) {
                names.insert(part.PartName);
            }
        }
        return names.insert(name).second;
    };
    while (*m_at == u' ') {
        const char16_t *start = ++m_at;
        m_at = std::find(start, m_end, u'=');
        const QStringView name(start, m_at);
        if (atEnd() || ++m_at == m_end || *m_at != u'"') {
            return false;
        }
        ++m_at;
        const auto value = parseValue(*element.XMLParts.m_arena);
        if (!value || (!name.isEmpty() && !isNew(name))) {
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
    const char16_t *const start = m_at;
    bool plain = true;
    while (m_at != m_end && *m_at != u'"') {
        if (*m_at == u'\\') {
            plain = false;
            if (++m_at == m_end) {
                return std::nullopt;
            }
        }
        ++m_at;
    }
    if (m_at == m_end) {
        return std::nullopt;
    }
    const QStringView raw(start, m_at++);
    return plain ? raw : unescaped(raw, arena);
}

/// Starts on the ">" of the opening tag and ends on the last character of the element, or behind the text
/// when that ends first: an element that is not closed is complete.
bool XMLParser::parseChildren(clsXMLMessage &element, int depth)
{
    ++m_at;
    parseContent(element);
    while (!atEnd()) {
        if (m_at + 1 != m_end && m_at[1] == u'/') {
            return findClosing();
        }
        if (!parseElement(element.XMLMessage.append(u"Tmp", {}), depth + 1)) {
            return false;
        }
        m_at += atEnd() ? 0 : 1;
        parseContent(element);
    }
    return true;
}

/// Leaves the position on the next "<" that is not escaped, or at the end.
void XMLParser::parseContent(clsXMLMessage &element)
{
    const char16_t *const start = m_at;
    bool plain = true;
    while (m_at != m_end && *m_at != u'<') {
        if (*m_at == u'\\') {
            plain = false;
            if (++m_at == m_end) {
                break;
            }
        }
        ++m_at;
    }
    const QStringView raw(start, m_at);
    const QStringView text = plain ? raw : unescaped(raw, *element.XMLParts.m_arena);
    if (text.isEmpty()) {
        return;
    }
    if (clsXMLPart *content = element.XMLParts.Item(contentName)) {
        content->PartValue = text;
    } else {
        element.XMLParts.append(contentName, text, contentName);
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
    position = qMin(parser.position(), text.size());
    return parsed;
}

QString BuildXML(const clsXMLMessage &element)
{
    QString text;
    appendElement(text, element);
    return text;
}

QString EscapeXML(QStringView text)
{
    QString escaped;
    escaped.reserve(text.size() + 16);
    appendEscaped(escaped, text);
    return escaped;
}

QString UnescapeXML(QStringView text)
{
    QString plain(text.size(), Qt::Uninitialized);
    auto *start = reinterpret_cast<char16_t *>(plain.data());
    plain.truncate(unescapeTo(text, start) - start);
    return plain;
}
