#pragma once

#include <QHash>
#include <QString>

#include <algorithm>
#include <memory>
#include <vector>

/// Records in insertion order, each under a unique text key; positions run from 1 to Count().
/// The collection shares its records with whoever holds one, so that a record outlives its removal
/// for a caller that still looks at it.
template <typename Record>
class KeyedCollection
{
public:
    using Pointer = std::shared_ptr<Record>;

    /// Appends the record. A key already present is refused: the result is null and nothing changes.
    Pointer insert(const QString &key, Pointer record)
    {
        if (m_byKey.contains(key)) {
            return nullptr;
        }
        m_byKey.insert(key, record);
        m_inOrder.push_back({key, record});
        return record;
    }

    /// The record under the key, or null.
    [[nodiscard]] Pointer Item(const QString &key) const { return m_byKey.value(key); }

    /// The record at the position, or null.
    [[nodiscard]] Pointer Item(qsizetype position) const
    {
        return isPosition(position) ? m_inOrder[static_cast<std::size_t>(position - 1)].record : nullptr;
    }

    [[nodiscard]] qsizetype Count() const { return static_cast<qsizetype>(m_inOrder.size()); }

    /// False when there is no such key.
    bool Remove(const QString &key)
    {
        if (m_byKey.remove(key) == 0) {
            return false;
        }
        m_inOrder.erase(std::ranges::find(m_inOrder, key, &Entry::key));
        return true;
    }

    /// False when there is no such position.
    bool Remove(qsizetype position)
    {
        if (!isPosition(position)) {
            return false;
        }
        const auto entry = m_inOrder.begin() + (position - 1);
        m_byKey.remove(entry->key);
        m_inOrder.erase(entry);
        return true;
    }

    /// From the last position down to the first.
    void RemoveAll()
    {
        while (!m_inOrder.empty()) {
            m_byKey.remove(m_inOrder.back().key);
            m_inOrder.pop_back();
        }
    }

private:
    struct Entry
    {
        QString key;
        Pointer record;
    };

    [[nodiscard]] bool isPosition(qsizetype position) const { return position >= 1 && position <= Count(); }

    std::vector<Entry> m_inOrder;
    QHash<QString, Pointer> m_byKey;
};
