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

constexpr bool isRtfLetter(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

/// The word whose first letter is at the place, which goes on behind it and the space that ends it. Numbers
/// are clamped to a thousand million.
inline RtfWord readRtfWord(const char16_t *&at, const char16_t *end)
{
    constexpr qint64 largestNumber = 1'000'000'000;
    RtfWord word;
    while (at != end && isRtfLetter(*at)) {
        word.hash = rtfHashStep(word.hash, *at++);
    }
    const bool negative = end - at >= 2 && *at == u'-' && at[1] >= u'0' && at[1] <= u'9';
    at += negative ? 1 : 0;
    qint64 number = 0;
    const char16_t *const digits = at;
    while (at != end && *at >= u'0' && *at <= u'9') {
        number = qMin(number * 10 + (*at++ - u'0'), largestNumber);
    }
    if (at != digits) {
        word.number = static_cast<qint32>(negative ? -number : number);
    }
    if (at != end && *at == u' ') {
        ++at;
    }
    return word;
}
