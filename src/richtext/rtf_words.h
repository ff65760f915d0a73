#pragma once

#include <QtGlobal>

#include <optional>
#include <string_view>

/// Control words are told apart by a hash of their letters, computed while they are read. A switch over these
/// values does not compile when two known words have the same.
inline constexpr quint32 rtfHashStart = 2166136261U;

constexpr quint32 rtfHashStep(quint32 hash, char16_t letter)
{
    return (hash ^ letter) * 16777619U;
}

constexpr quint32 operator""_rtf(const char *word, std::size_t size)
{
    quint32 hash = rtfHashStart;
    for (const char letter : std::string_view(word, size)) {
        hash = rtfHashStep(hash, static_cast<unsigned char>(letter));
    }
    return hash;
}

/// A control word as it was read: \name or \name123.
struct RtfWord
{
    quint32 hash = rtfHashStart;
    std::optional<qint32> number;

    [[nodiscard]] qint32 numberOr(qint32 other) const { return number.value_or(other); }
    [[nodiscard]] bool isOn() const { return numberOr(1) != 0; }
};
