#include "platform/code_page.h"

#include <cstring>

namespace {

/// Looks at eight bytes at a time: every message that comes or goes passes here.
bool isAscii(const void *data, std::size_t size, quint64 highBits)
{
    const auto *at = static_cast<const char *>(data);
    quint64 seen = 0;
    for (; size >= sizeof seen; at += sizeof seen, size -= sizeof seen) {
        quint64 piece = 0;
        std::memcpy(&piece, at, sizeof piece);
        seen |= piece;
    }
    quint64 rest = 0;
    std::memcpy(&rest, at, size);
    return ((seen | rest) & highBits) == 0;
}

bool isAscii(QByteArrayView bytes)
{
    return isAscii(bytes.data(), static_cast<std::size_t>(bytes.size()), 0x8080808080808080U);
}

bool isAscii(QStringView text)
{
    return isAscii(text.utf16(), static_cast<std::size_t>(text.size()) * sizeof(char16_t),
                   0xFF80FF80FF80FF80U);
}

/// True for the code pages in which the ASCII characters are the bytes that they are in ASCII. Others would
/// put NULs inside messages.
bool holdsAscii(const QByteArray &name)
{
    QByteArray ascii;
    for (char c = 1; c < 127; ++c) {
        ascii += c;
    }
    QStringEncoder encoder(name.constData());
    return encoder.isValid() && QByteArray(encoder.encode(QString::fromLatin1(ascii))) == ascii;
}

} // namespace

CodePage::CodePage(const QString &name) : m_name(name.toLatin1())
{
    if (!holdsAscii(m_name)) {
        m_name = "windows-1252";
    }
}

QString CodePage::decode(QByteArrayView bytes) const
{
    if (isAscii(bytes)) { // the common case, and every code page here agrees on ASCII
        return QString::fromLatin1(bytes);
    }
    return QStringDecoder(m_name.constData(), QStringConverter::Flag::Stateless).decode(bytes);
}

QByteArray CodePage::encode(QStringView text) const
{
    if (isAscii(text)) {
        return text.toLatin1();
    }
    QStringEncoder whole(m_name.constData(), QStringConverter::Flag::Stateless);
    QByteArray bytes = whole.encode(text);
    if (!whole.hasError()) {
        return bytes;
    }
    bytes.clear();
    for (qsizetype at = 0; at < text.size();) {
        const bool pair = text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        QStringEncoder one(m_name.constData(), QStringConverter::Flag::Stateless);
        const QByteArray encoded = one.encode(text.sliced(at, pair ? 2 : 1));
        bytes += one.hasError() ? QByteArrayLiteral("?") : encoded;
        at += pair ? 2 : 1;
    }
    return bytes;
}
