#include "link/clsXMLMessage.h"

#include <algorithm>
#include <new>
#include <type_traits>

// The arena gives its memory back as a whole and runs no destructors.
static_assert(std::is_trivially_destructible_v<clsXMLPart>);
static_assert(std::is_trivially_destructible_v<clsXMLMessage>);

namespace {

/// Takes the node out of a singly linked list whose ends are given. The node before it is null for the first.
template <typename Node>
void unlink(Node *&first, Node *&last, Node *before, Node *node, Node *Node::*next)
{
    (before != nullptr ? before->*next : first) = node->*next;
    if (last == node) {
        last = before;
    }
}

} // namespace

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
    if (key.isEmpty()) {
        return part;
    }
    (m_last != nullptr ? m_last->m_next : m_first) = part;
    m_last = part;
    ++m_count;
    return part;
}

clsXMLPart *colXMLParts::Item(QStringView key)
{
    for (clsXMLPart *part = m_first; part != nullptr; part = part->m_next) {
        if (part->m_key == key) {
            return part;
        }
    }
    return nullptr;
}

const clsXMLPart *colXMLParts::Item(QStringView key) const
{
    return const_cast<colXMLParts *>(this)->Item(key);
}

const clsXMLPart *colXMLParts::Item(qsizetype position) const
{
    const clsXMLPart *part = position >= 1 ? m_first : nullptr;
    for (qsizetype at = 1; part != nullptr && at < position; ++at) {
        part = part->m_next;
    }
    return part;
}

bool colXMLParts::Remove(QStringView key)
{
    clsXMLPart *before = nullptr;
    for (clsXMLPart *part = m_first; part != nullptr; before = part, part = part->m_next) {
        if (part->m_key == key) {
            unlink(m_first, m_last, before, part, &clsXMLPart::m_next);
            --m_count;
            return true;
        }
    }
    return false;
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
    (m_last != nullptr ? m_last->m_next : m_first) = child;
    m_last = child;
    ++m_count;
    return *child;
}

colXMLMessage::iterator colXMLMessage::begin() const
{
    return iterator(m_first);
}

const clsXMLMessage *colXMLMessage::Item(qsizetype position) const
{
    const clsXMLMessage *child = position >= 1 ? m_first : nullptr;
    for (qsizetype at = 1; child != nullptr && at < position; ++at) {
        child = child->m_next;
    }
    return child;
}

const clsXMLMessage *colXMLMessage::Item(QStringView key) const
{
    const auto child = std::find_if(begin(), end(), [&](const clsXMLMessage &c) { return c.m_key == key; });
    return child != end() && !key.isEmpty() ? &*child : nullptr;
}

bool colXMLMessage::Remove(qsizetype position)
{
    clsXMLMessage *before = nullptr;
    qsizetype at = 1;
    for (clsXMLMessage *child = m_first; child != nullptr; before = child, child = child->m_next, ++at) {
        if (at == position) {
            unlink(m_first, m_last, before, child, &clsXMLMessage::m_next);
            --m_count;
            return true;
        }
    }
    return false;
}

std::optional<QStringView> clsXMLMessage::value(QStringView name) const
{
    const clsXMLPart *part = XMLParts.Item(name);
    return part != nullptr ? std::optional(part->PartValue) : std::nullopt;
}
