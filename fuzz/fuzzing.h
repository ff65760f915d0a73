#pragma once

#include <QByteArray>

#include <cstdio>
#include <cstdlib>

/// What the targets share.

/// What must hold whatever the input is; where it does not, the fuzzer keeps the input.
inline void require(bool holds, const char *file = __builtin_FILE(), int line = __builtin_LINE())
{
    if (!holds) {
        std::fprintf(stderr, "%s:%d: does not hold\n", file, line);
        std::abort();
    }
}

/// An input that several things are made of.
class Input
{
public:
    Input(const unsigned char *data, std::size_t size)
        : m_rest(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size))
    {}

    /// 0 at the end.
    [[nodiscard]] unsigned char byte()
    {
        const QByteArrayView first = take(qMin(m_rest.size(), qsizetype(1)));
        return first.isEmpty() ? 0 : static_cast<unsigned char>(first.front());
    }

    /// Up to the next NUL, which is passed over, or to the end.
    [[nodiscard]] QByteArrayView part()
    {
        const qsizetype nul = m_rest.indexOf('\0');
        const QByteArrayView text = take(nul < 0 ? m_rest.size() : nul);
        m_rest = m_rest.sliced(nul < 0 ? 0 : 1);
        return text;
    }

    [[nodiscard]] QByteArrayView rest() const { return m_rest; }
    [[nodiscard]] bool atEnd() const { return m_rest.isEmpty(); }

private:
    QByteArrayView take(qsizetype size)
    {
        const QByteArrayView taken = m_rest.first(size);
        m_rest = m_rest.sliced(size);
        return taken;
    }

    QByteArrayView m_rest;
};
