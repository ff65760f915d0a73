#include "platform/clsRegistry.h"

#include "platform/text_file.h"

#include <QStringList>
#include <QtEndian>

#include <optional>

namespace {

struct StoredValue
{
    RegistryType type = RegistryType::None;
    QVariant value;
};

QStringView className(quint32 classKey)
{
    switch (classKey) {
    case 0x80000000:
        return u"HKEY_CLASSES_ROOT";
    case clsRegistry::currentUser:
        return u"HKEY_CURRENT_USER";
    case 0x80000002:
        return u"HKEY_LOCAL_MACHINE";
    case 0x80000003:
        return u"HKEY_USERS";
    default:
        return u"";
    }
}

bool isSame(QStringView a, QStringView b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

/// The text between the quotes at the start; the rest is left. None where there is no such text.
std::optional<QString> takeQuoted(QStringView &line)
{
    if (!line.startsWith(u'"')) {
        return std::nullopt;
    }
    QString text;
    for (qsizetype at = 1; at < line.size(); ++at) {
        if (line[at] == u'"') {
            line = line.sliced(at + 1);
            return text;
        }
        if (line[at] == u'\\' && at + 1 < line.size()) {
            ++at;
        }
        text += line[at];
    }
    return std::nullopt;
}

/// The environment variables of that text; a name that none has stays as it is.
QString expanded(const QString &text)
{
    QString result;
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype end = text[at] == u'%' ? text.indexOf(u'%', at + 1) : -1;
        const QByteArray name = end < 0 ? QByteArray() : text.sliced(at + 1, end - at - 1).toLocal8Bit();
        if (end < 0 || !qEnvironmentVariableIsSet(name.constData())) {
            result += text[at++];
            continue;
        }
        result += qEnvironmentVariable(name.constData());
        at = end + 1;
    }
    return result;
}

/// Without its terminating zero.
QString textOf(const QByteArray &utf16)
{
    QString text(utf16.size() / 2, Qt::Uninitialized);
    for (qsizetype i = 0; i < text.size(); ++i) {
        text[i] = QChar(qFromLittleEndian<char16_t>(utf16.constData() + 2 * i));
    }
    if (text.endsWith(QChar(0))) {
        text.chop(1);
    }
    return text;
}

std::optional<quint32> numberOf(const QByteArray &bytes, bool bigEndian)
{
    if (bytes.size() != sizeof(quint32)) {
        return std::nullopt;
    }
    return bigEndian ? qFromBigEndian<quint32>(bytes.constData())
                     : qFromLittleEndian<quint32>(bytes.constData());
}

std::optional<QByteArray> bytesOf(QStringView list)
{
    QByteArray bytes;
    for (const QStringView part : list.tokenize(u',', Qt::SkipEmptyParts)) {
        bool ok = false;
        const uint byte = part.trimmed().toUInt(&ok, 16);
        if (!ok || byte > 0xFF) {
            return std::nullopt;
        }
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

std::optional<StoredValue> hexValue(RegistryType type, const QByteArray &bytes)
{
    switch (type) {
    case RegistryType::String:
    case RegistryType::MultiString:
        return StoredValue{type, textOf(bytes)};
    case RegistryType::ExpandableString:
        return StoredValue{type, expanded(textOf(bytes))};
    case RegistryType::Number:
    case RegistryType::BigEndianNumber:
        if (const auto number = numberOf(bytes, type == RegistryType::BigEndianNumber)) {
            return StoredValue{type, *number};
        }
        return std::nullopt;
    default:
        return StoredValue{type, bytes};
    }
}

/// What stands behind "name"=.
std::optional<StoredValue> valueOf(QStringView text)
{
    if (const auto string = takeQuoted(text)) {
        return StoredValue{RegistryType::String, *string};
    }
    bool ok = false;
    if (text.startsWith(u"dword:", Qt::CaseInsensitive)) {
        const quint32 number = text.sliced(6).trimmed().toUInt(&ok, 16);
        return ok ? std::optional(StoredValue{RegistryType::Number, number}) : std::nullopt;
    }
    const qsizetype colon = text.indexOf(u':');
    if (!text.startsWith(u"hex", Qt::CaseInsensitive) || colon < 0) {
        return std::nullopt;
    }
    const QStringView number = text.sliced(3, colon - 3);
    const uint type = number.isEmpty() ? static_cast<uint>(RegistryType::Binary)
                                       : number.mid(1, number.size() - 2).toUInt(&ok, 16);
    const auto bytes = bytesOf(text.sliced(colon + 1));
    if (!bytes || (!number.isEmpty() && !ok)) {
        return std::nullopt;
    }
    return hexValue(static_cast<RegistryType>(type), *bytes);
}

} // namespace

QVariant clsRegistry::Value()
{
    const QString section = u'[' % className(ClassKey) % u'\\' % SectionKey % u']';
    QString text = readTextFile(m_file).value_or(QString());
    text.remove(u'\r').remove(QStringLiteral("\\\n")); // a list of bytes may go over several lines
    bool inSection = false;
    for (QStringView line : QStringView(text).tokenize(u'\n')) {
        line = line.trimmed();
        if (line.startsWith(u'[')) {
            inSection = isSame(line, section);
        }
        const auto name = inSection ? takeQuoted(line) : std::nullopt;
        if (!name || !isSame(*name, ValueKey) || !line.startsWith(u'=')) {
            continue;
        }
        if (const auto stored = valueOf(line.sliced(1))) {
            ValueType = stored->type;
            return stored->value;
        }
    }
    return Default;
}
