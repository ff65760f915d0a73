#include "link/clsXMLMessage.h"

#include <algorithm>
#include <new>
#include <type_traits>

// The arena gives its memory back as a whole and runs no destructors.
static_assert(std::is_trivially_destructible_v<clsXMLPart>);
static_assert(std::is_trivially_destructible_v<clsXMLMessage>);

/// Each block is twice as large as the one before, up to a bound, so that a large message needs few of them.
void XMLArena::addBlock(std::size_t leastSize)
{
    constexpr std::size_t largest = 256U << 10U;
    const std::size_t usual = sizeof m_first << std::min<std::size_t>(m_blocks.size() + 1, 10);
    const std::size_t size = std::max(leastSize, std::min(usual, largest));
    m_free = m_blocks.emplace_back(std::make_unique_for_overwrite<std::byte[]>(size)).get();
    m_end = m_free + size;
}

QStringView XMLArena::keep(QStringView text)
{
    if (text.isEmpty()) {
        return u"";
    }
    auto *copy = room<char16_t>(static_cast<std::size_t>(text.size()));
    std::copy_n(text.utf16(), text.size(), copy);
    return {copy, text.size()};
}

clsXMLPart *colXMLParts::Add(QStringView name, QStringView value, QStringView key)
{
    const QStringView storedUnder = name.isEmpty() ? key : name;
    if (!storedUnder.isEmpty() && Item(storedUnder) != nullptr) {
        return nullptr;
    }
    return append(m_arena->keep(name), m_arena->keep(value), m_arena->keep(storedUnder));
}

clsXMLPart *colXMLParts::append(QStringView name, QStringView value, QStringView key)
{
    auto *part = new (m_arena->room<clsXMLPart>()) clsXMLPart;
    part->PartName = name;
    part->PartValue = value;
    part->m_key = key;
    if (!key.isEmpty()) {
        link(part);
    }
    return part;
}

clsXMLMessage &colXMLMessage::Add(QStringView name, QStringView key)
{
    return append(m_arena->keep(name), m_arena->keep(key));
}

clsXMLMessage &colXMLMessage::append(QStringView name, QStringView key)
{
    auto *child = new (m_arena->room<clsXMLMessage>()) clsXMLMessage(*m_arena);
    child->MsgName = name;
    child->m_key = key;
    link(child);
    return *child;
}

std::optional<QStringView> clsXMLMessage::value(QStringView name) const
{
    const clsXMLPart *part = XMLParts.Item(name);
    return part != nullptr ? std::optional(part->PartValue) : std::nullopt;
}
