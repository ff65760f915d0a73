#include "platform/code_page.h"

#include <algorithm>

namespace {

bool isAscii(QByteArrayView bytes)
{
    return std::ranges::all_of(bytes, [](char c) { return static_cast<signed char>(c) >= 0; });
}

bool isAscii(QStringView text)
{
    return std::ranges::all_of(text, [](QChar c) { return c.unicode() < 0x80; });
}

} // namespace

CodePage::CodePage(const QString &name) : m_name(name.toLatin1())
{
    if (!QStringDecoder(m_name.constData()).isValid()) {
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
