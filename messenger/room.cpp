#include "messenger/room.h"

#include <iterator>

namespace messenger {

Room::Room(qint32 cid, const RoomPlan &plan) : m_cid(cid), m_plan(plan)
{
    setStanding(plan.ownerId, Standing::Present);
}

Standing Room::standing(const QString &id) const
{
    return m_places.value(id).standing;
}

bool Room::isFull() const
{
    return presentCount() + m_admitted >= m_plan.capacity;
}

QStringList Room::present() const
{
    QStringList ids;
    ids.reserve(presentCount());
    for (const auto &[arrival, id] : m_present) {
        ids.append(id);
    }
    return ids;
}

void Room::setStanding(const QString &id, Standing standing)
{
    const Place before = m_places.take(id);
    m_present.erase(before.arrival);
    m_admitted -= before.standing == Standing::Admitted ? 1 : 0;
    m_admitted += standing == Standing::Admitted ? 1 : 0;
    if (standing == Standing::None) {
        return;
    }
    Place place{.standing = standing};
    if (standing == Standing::Present) {
        place.arrival = ++m_lastArrival;
        m_present.emplace(place.arrival, id);
    }
    m_places.insert(id, place);
}

/// Arrivals only grow, so that whoever comes and goes between two pages makes no member appear twice or
/// never; the total counts what was told already and what is still to be told.
ContentsPage Room::nextPage(const QString &id)
{
    const auto place = m_places.find(id);
    if (place == m_places.end()) {
        return {};
    }
    auto next = m_present.upper_bound(place->pagedUpTo);
    if (next == m_present.end()) {
        place->pagedUpTo = 0;
        place->pagedIds = 0;
        next = m_present.begin();
    }
    ContentsPage page{.total = place->pagedIds + std::distance(next, m_present.end())};
    for (; next != m_present.end() && page.ids.size() < pageSize; ++next) {
        page.ids.append(next->second);
        place->pagedUpTo = next->first;
    }
    place->pagedIds += page.ids.size();
    return page;
}

} // namespace messenger
