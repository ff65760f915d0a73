#pragma once

#include <QHash>
#include <QString>

#include <memory>
#include <vector>

/// Records in insertion order, each under a unique text key; positions run from 1 to Count().
/// The collection shares its records with whoever holds one, so that a record outlives its removal
/// for a caller that still looks at it. Thousands may go at once: the place of one that has gone stays empty
/// until a position is asked for.
template <typename Record>
class KeyedCollection
{
public:
    using Pointer = std::shared_ptr<Record>;

    /// Appends the record. A key already present is refused: the result is null and nothing changes.
    Pointer insert(const QString &key, Pointer record)
    {
        if (m_places.contains(key)) {
            return nullptr;
        }
        if (m_inOrder.size() > 2 * static_cast<std::size_t>(m_places.size()) + fewGaps) {
            closeGaps();
        }
        m_places.insert(key, m_inOrder.size());
        m_inOrder.push_back({key, record});
        return record;
    }

    /// The record under the key, or null.
    [[nodiscard]] Pointer Item(const QString &key) const
    {
        const auto place = m_places.constFind(key);
        return place == m_places.cend() ? nullptr : m_inOrder[*place].record;
    }

    /// The record at the position, or null.
    [[nodiscard]] Pointer Item(qsizetype position) const
    {
        closeGaps();
        return isPosition(position) ? m_inOrder[static_cast<std::size_t>(position - 1)].record : nullptr;
    }

    [[nodiscard]] qsizetype Count() const { return m_places.size(); }

    /// False when there is no such key.
    bool Remove(const QString &key)
    {
        const auto place = m_places.constFind(key);
        if (place == m_places.cend()) {
            return false;
        }
        m_inOrder[*place] = {};
        m_places.erase(place);
        return true;
    }

    /// False when there is no such position.
    bool Remove(qsizetype position)
    {
        closeGaps();
        return isPosition(position) && Remove(QString(m_inOrder[static_cast<std::size_t>(position - 1)].key));
    }

    /// From the last position down to the first.
    void RemoveAll()
    {
        while (!m_inOrder.empty()) {
            m_places.remove(m_inOrder.back().key);
            m_inOrder.pop_back();
        }
    }

private:
    struct Entry
    {
        QString key;
        Pointer record; ///< null in a gap
    };
    static constexpr std::size_t fewGaps = 16;

    [[nodiscard]] bool isPosition(qsizetype position) const { return position >= 1 && position <= Count(); }

    void closeGaps() const
    {
        if (m_inOrder.size() == static_cast<std::size_t>(m_places.size())) {
            return;
        }
        std::erase_if(m_inOrder, [](const Entry &entry) { return entry.record == nullptr; });
        for (std::size_t place = 0; place < m_inOrder.size(); ++place) {
            m_places[m_inOrder[place].key] = place;
        }
    }

    mutable std::vector<Entry> m_inOrder;
    mutable QHash<QString, std::size_t> m_places; ///< of those that are there
};
