#include "platform/skin_toml.h"

#include "platform/skin_error.h"
#include "platform/skin_names.h"

#include <stdexcept>

// The parser trusts its own assertions, which bytes of a stranger might break: they end the parse, not the
// program, in every kind of build. Its depth is bounded because its values are destroyed by recursion.
[[noreturn]] static void abandonParse()
{
    throw std::logic_error("the parser is at a loss");
}
#undef NDEBUG
#define TOML_ASSERT(expression) ((expression) ? void() : abandonParse())
#define TOML_HEADER_ONLY 1
#define TOML_ENABLE_FORMATTERS 0
#define TOML_MAX_NESTED_VALUES 32
#include <toml++/toml.h>

namespace {

constexpr int mostDots = 64; // of a line: that many tables may one key open inside each other

[[noreturn]] void refuse(const QString &file, qint64 line, qint64 column, const QString &why)
{
    throw SkinError(file, QStringLiteral("%1:%2:%3").arg(skinTomlName).arg(line).arg(column), why);
}

/// The parser bounds lists and inline tables, but not "a.a.a.a". Two dots together part no keys.
void checkDepth(const QByteArray &toml, const QString &file)
{
    int line = 1;
    int dots = 0;
    const char *const text = toml.constData(); // ends in a NUL
    for (qsizetype at = 0; at < toml.size(); ++at) {
        if (text[at] == '\n') {
            ++line;
            dots = 0;
        } else if (text[at] == '.' && text[at + 1] != '.' && (at == 0 || text[at - 1] != '.') &&
                   ++dots > mostDots) {
            refuse(file, line, 1, QStringLiteral("more than %1 dots in a line").arg(mostDots));
        }
    }
}

QString textOf(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

SkinScalar scalarOf(const toml::node &node)
{
    if (const auto *text = node.as_string()) {
        return textOf(text->get());
    }
    if (const auto *number = node.as_integer()) {
        return qint64{number->get()};
    }
    if (const auto *number = node.as_floating_point()) {
        return number->get();
    }
    if (const auto *flag = node.as_boolean()) {
        return flag->get();
    }
    return {};
}

SkinTomlValue valueOf(const toml::node &node)
{
    SkinTomlValue value;
    value.line = static_cast<int>(node.source().begin.line);
    value.column = static_cast<int>(node.source().begin.column);
    if (const toml::table *table = node.as_table()) {
        QMap<QString, SkinScalar> fields;
        for (const auto &[key, field] : *table) {
            fields.insert(textOf(key.str()), scalarOf(field));
        }
        value.content = fields;
    } else {
        value.content = scalarOf(node);
    }
    return value;
}

SkinTables tablesOf(const toml::table &root)
{
    SkinTables tables;
    for (const auto &[name, node] : root) {
        const toml::table *section = node.as_table();
        if (section == nullptr) {
            tables.sections[QString()].insert(textOf(name.str()), valueOf(node));
            continue;
        }
        QMap<QString, SkinTomlValue> &keys = tables.sections[textOf(name.str())];
        for (const auto &[key, value] : *section) {
            keys.insert(textOf(key.str()), valueOf(value));
        }
    }
    return tables;
}

} // namespace

SkinTables readSkinToml(const QByteArray &toml, const QString &file)
{
    checkDepth(toml, file);
    try {
        const std::string_view text(toml.constData(), static_cast<std::size_t>(toml.size()));
        return tablesOf(toml::parse(text));
    } catch (const toml::parse_error &error) {
        const toml::source_position place = error.source().begin;
        refuse(file, place.line, place.column, printable(textOf(error.description())));
    } catch (const std::logic_error &error) {
        refuse(file, 1, 1, QString::fromUtf8(error.what()));
    }
}

QString kindOf(const SkinTomlValue &value)
{
    if (std::holds_alternative<QMap<QString, SkinScalar>>(value.content)) {
        return QStringLiteral("table");
    }
    const char *const kinds[] = {"something else", "text", "number", "number", "true or false"};
    return QString::fromLatin1(kinds[std::get<SkinScalar>(value.content).index()]);
}
