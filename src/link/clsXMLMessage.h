#pragma once

#include <QStringView>

#include <cstddef>
#include <iterator>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

/// The tree of one message of the protocol: elements with attributes and children. The tree is built once,
/// read by name and dropped as a whole, so all of it lives in the arena of its XMLDocument and an element
/// costs no allocation of its own. Texts are views: of the message that was parsed, or of the arena.

/// One attribute.
struct clsXMLPart
{
    QStringView PartName;
    QStringView PartValue;

private:
    friend class colXMLParts;
    template <typename Node>
    friend class XMLIterator;
    QStringView m_key;
    clsXMLPart *m_next = nullptr;
};

/// Walks the attributes or the children of an element in document order.
template <typename Node>
class XMLIterator
{
public:
    using value_type = Node;
    using difference_type = std::ptrdiff_t;

    XMLIterator() = default;
    explicit XMLIterator(Node *node) : m_node(node) {}
    Node &operator*() const { return *m_node; }
    Node *operator->() const { return m_node; }
    XMLIterator &operator++()
    {
        m_node = m_node->m_next;
        return *this;
    }
    XMLIterator operator++(int)
    {
        XMLIterator before = *this;
        ++*this;
        return before;
    }
    friend bool operator==(const XMLIterator &, const XMLIterator &) = default;

private:
    Node *m_node = nullptr;
};

/// Where the nodes and the kept texts of one tree live: room is only ever taken, and all of it is given back
/// at the end. A usual message fits into the first block, which needs no allocation.
class XMLArena
{
public:
    XMLArena() = default;
    XMLArena(const XMLArena &) = delete;
    XMLArena &operator=(const XMLArena &) = delete;

    /// Uninitialised room for that many objects.
    template <typename T>
    [[nodiscard]] T *room(std::size_t count = 1)
    {
        static_assert(alignof(T) <= alignof(void *));
        const std::size_t size =
            (count * sizeof(T) + alignof(void *) - 1) / alignof(void *) * alignof(void *);
        if (size > static_cast<std::size_t>(m_end - m_free)) {
            addBlock(size);
        }
        return reinterpret_cast<T *>(std::exchange(m_free, m_free + size));
    }

    /// A copy of the text that lives as long as the arena.
    [[nodiscard]] QStringView keep(QStringView text);

private:
    void addBlock(std::size_t leastSize);

    alignas(void *) std::byte m_first[2048];
    std::byte *m_free = m_first;
    std::byte *m_end = m_first + sizeof m_first;
    std::vector<std::unique_ptr<std::byte[]>> m_blocks;
};

/// The attributes of one element, in insertion order, each under a unique key.
class colXMLParts
{
public:
    using iterator = XMLIterator<const clsXMLPart>;

    explicit colXMLParts(XMLArena &arena) : m_arena(&arena) {}

    /// Adds copies of the texts under the name or, when that is empty, under the key; with both empty the
    /// part is made but not stored. Null, and nothing added, when the key is already present.
    clsXMLPart *Add(QStringView name, QStringView value, QStringView key = {});

    /// The part under the key, or null.
    [[nodiscard]] const clsXMLPart *Item(QStringView key) const;
    [[nodiscard]] clsXMLPart *Item(QStringView key);
    /// The part at the position, counted from 1, or null.
    [[nodiscard]] const clsXMLPart *Item(qsizetype position) const;

    [[nodiscard]] qsizetype Count() const { return m_count; }

    /// False when there is no such part.
    bool Remove(QStringView key);

    [[nodiscard]] iterator begin() const { return iterator(m_first); }
    [[nodiscard]] iterator end() const { return {}; }

private:
    friend class XMLParser;
    /// Adds views, and leaves it to the caller that the key is new.
    clsXMLPart *append(QStringView name, QStringView value, QStringView key);

    XMLArena *m_arena;
    clsXMLPart *m_first = nullptr;
    clsXMLPart *m_last = nullptr;
    qsizetype m_count = 0;
};

class clsXMLMessage;

/// The children of one element, in document order.
class colXMLMessage
{
public:
    using iterator = XMLIterator<const clsXMLMessage>;

    explicit colXMLMessage(XMLArena &arena) : m_arena(&arena) {}

    /// A new child at the end; with a key it can be asked for by it. The tree owns it.
    clsXMLMessage &Add(QStringView name, QStringView key = {});

    /// The child at the position, counted from 1, or under the key; null when there is none, which a caller
    /// that needs it treats as an error.
    [[nodiscard]] const clsXMLMessage *Item(qsizetype position) const;
    [[nodiscard]] const clsXMLMessage *Item(QStringView key) const;

    [[nodiscard]] qsizetype Count() const { return m_count; }

    /// False when there is no such child.
    bool Remove(qsizetype position);

    [[nodiscard]] iterator begin() const;
    [[nodiscard]] iterator end() const { return {}; }

private:
    friend class XMLParser;
    clsXMLMessage &append(QStringView name, QStringView key);

    XMLArena *m_arena;
    clsXMLMessage *m_first = nullptr;
    clsXMLMessage *m_last = nullptr;
    qsizetype m_count = 0;
};

/// One element. Its text content is the attribute "cnode".
class clsXMLMessage
{
public:
    explicit clsXMLMessage(XMLArena &arena) : XMLParts(arena), XMLMessage(arena) {}
    clsXMLMessage(const clsXMLMessage &) = delete;
    clsXMLMessage &operator=(const clsXMLMessage &) = delete;

    /// The value of the attribute; none when the element has no such attribute.
    [[nodiscard]] std::optional<QStringView> value(QStringView name) const;

    QStringView MsgName;
    colXMLParts XMLParts;
    colXMLMessage XMLMessage;

private:
    friend class colXMLMessage;
    template <typename Node>
    friend class XMLIterator;
    QStringView m_key;
    clsXMLMessage *m_next = nullptr;
};

/// An empty element together with the memory of its tree.
struct XMLDocument
{
    XMLArena arena;
    clsXMLMessage root{arena};
};
