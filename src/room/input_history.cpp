#include "room/input_history.h"

void InputHistory::add(const QString &sent)
{
    m_lines.removeAll(sent);
    m_lines.append(sent);
    if (m_lines.size() > most) {
        m_lines.removeFirst();
    }
    m_place = m_lines.size();
    m_unsent.clear();
}

QString InputHistory::older(const QString &shown)
{
    if (m_place == 0) {
        return shown;
    }
    if (m_place == m_lines.size()) {
        m_unsent = shown;
    }
    --m_place;
    return at(m_place, shown);
}

QString InputHistory::newer(const QString &shown)
{
    if (m_place == m_lines.size()) {
        return shown;
    }
    ++m_place;
    return at(m_place, shown);
}

QString InputHistory::at(qsizetype place, const QString &shown) const
{
    return place == m_lines.size() ? m_unsent : m_lines.value(place, shown);
}
