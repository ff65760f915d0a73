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

template <typename Node>
class XMLList;

/// One attribute.
struct clsXMLPart
{
    QStringView PartName;
    QStringView PartValue;

private:
    friend class colXMLParts;
    template <typename Node>
    friend class XMLIterator;
    template <typename Node>
    friend class XMLList;
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

/// Nodes of one element in insertion order, found by key or by position. Positions count from 1; an empty key
/// finds nothing.
template <typename Node>
class XMLList
{
public:
    using iterator = XMLIterator<const Node>;

    /// Null when there is no such node.
    [[nodiscard]] const Node *Item(QStringView key) const { return const_cast<XMLList *>(this)->Item(key); }
    [[nodiscard]] Node *Item(QStringView key) { return find(key).node; }
    [[nodiscard]] const Node *Item(qsizetype position) const
    {
        return const_cast<XMLList *>(this)->find(position).node;
    }

    [[nodiscard]] qsizetype Count() const { return m_count; }

    /// False when there is no such node.
    bool Remove(QStringView key) { return remove(find(key)); }
    bool Remove(qsizetype position) { return remove(find(position)); }

    [[nodiscard]] iterator begin() const { return iterator(m_first); }
    [[nodiscard]] iterator end() const { return {}; }

protected:
    explicit XMLList(XMLArena &arena) : m_arena(&arena) {}

    void link(Node *node)
    {
        (m_last != nullptr ? m_last->m_next : m_first) = node;
        m_last = node;
        ++m_count;
    }

    XMLArena *m_arena;

private:
    /// The node that was looked for and the one before it; both may be null.
    struct Found
    {
        Node *before = nullptr;
        Node *node = nullptr;
    };

    [[nodiscard]] Found find(QStringView key)
    {
        Found found{nullptr, key.isEmpty() ? nullptr : m_first};
        while (found.node != nullptr && found.node->m_key != key) {
            found = {found.node, found.node->m_next};
        }
        return found;
    }

    [[nodiscard]] Found find(qsizetype position)
    {
        Found found{nullptr, position >= 1 ? m_first : nullptr};
        for (qsizetype at = 1; found.node != nullptr && at < position; ++at) {
            found = {found.node, found.node->m_next};
        }
        return found;
    }

    bool remove(const Found &found)
    {
        if (found.node == nullptr) {
            return false;
        }
        (found.before != nullptr ? found.before->m_next : m_first) = found.node->m_next;
        if (m_last == found.node) {
            m_last = found.before;
        }
        --m_count;
        return true;
    }

    Node *m_first = nullptr;
    Node *m_last = nullptr;
    qsizetype m_count = 0;
};

/// The attributes of one element, each under a unique key.
class colXMLParts : public XMLList<clsXMLPart>
{
public:
    explicit colXMLParts(XMLArena &arena) : XMLList(arena) {}

    /// Adds copies of the texts under the name or, when that is empty, under the key; with both empty the
    /// part is made but not stored. Null, and nothing added, when the key is already present.
    clsXMLPart *Add(QStringView name, QStringView value, QStringView key = {});

private:
    friend class XMLParser;
    /// Adds views, and leaves it to the caller that the key is new.
    clsXMLPart *append(QStringView name, QStringView value, QStringView key);
};

class clsXMLMessage;

/// The children of one element, in document order. A caller that needs a child that is not there treats the
/// null as an error.
class colXMLMessage : public XMLList<clsXMLMessage>
{
public:
    explicit colXMLMessage(XMLArena &arena) : XMLList(arena) {}

    /// A new child at the end; with a key it can be asked for by it. The tree owns it.
    clsXMLMessage &Add(QStringView name, QStringView key = {});

private:
    friend class XMLParser;
    clsXMLMessage &append(QStringView name, QStringView key);
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
    template <typename Node>
    friend class XMLList;
    QStringView m_key;
    clsXMLMessage *m_next = nullptr;
};

/// An empty element together with the memory of its tree.
struct XMLDocument
{
    XMLArena arena;
    clsXMLMessage root{arena};
};
