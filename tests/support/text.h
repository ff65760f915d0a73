#pragma once

#include <QString>

#include <gtest/gtest.h>

inline QString operator""_s(const char16_t *text, std::size_t size)
{
    return QString(reinterpret_cast<const QChar *>(text), static_cast<qsizetype>(size));
}

/// So that a failed comparison shows the text.
inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}
