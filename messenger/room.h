#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <map>

namespace messenger {

/// How a room treats those who ask to join.
enum class Door
{
    OwnerDecides, ///< a person owns the room and answers by hand or by rule
    Open,         ///< everyone is admitted at once
    HostAccepts,  ///< the host lets everyone in after a moment
    HostRejects,  ///< the host turns everyone away after a moment
};

/// How far somebody has come with a room.
enum class Standing
{
    None,
    Waiting,  ///< has asked and has no answer yet
    Admitted, ///< may enter, and has not said so yet
    Present,  ///< is a member, and the others know
};

/// Where a room is to be and how it is to be.
struct RoomPlan
{
    QString category; ///< the key of a category
    QString name;
    QString ownerId{};
    bool isPrivate = false; ///< not listed for those who are not in it
    Door door = Door::OwnerDecides;
    qsizetype capacity = 1000; ///< how many may be present or admitted
};

/// The next members of a room, in the order in which they came.
struct ContentsPage
{
    QStringList ids{};
    qsizetype total = 0; ///< how many all pages have together
};

/// One room and the people in and before it. It knows no users, only their ids.
class Room
{
public:
    static constexpr qsizetype pageSize = 100;

    /// The owner is present from the start.
    Room(qint32 cid, const RoomPlan &plan);

    [[nodiscard]] qint32 cid() const { return m_cid; }
    [[nodiscard]] const RoomPlan &plan() const { return m_plan; }
    [[nodiscard]] bool isOwner(const QString &id) const { return id == m_plan.ownerId; }

    [[nodiscard]] Standing standing(const QString &id) const;
    [[nodiscard]] bool has(const QString &id) const { return standing(id) == Standing::Present; }
    [[nodiscard]] qsizetype presentCount() const { return static_cast<qsizetype>(m_present.size()); }
    [[nodiscard]] bool isFull() const;

    /// The ids of those who are present, by arrival.
    [[nodiscard]] QStringList present() const;

    void setStanding(const QString &id, Standing standing);

    /// The next page for this member, from the first one again after the last.
    [[nodiscard]] ContentsPage nextPage(const QString &id);

private:
    struct Place
    {
        Standing standing = Standing::None;
        quint64 arrival = 0;    ///< the number under which a member is present
        quint64 pagedUpTo = 0;  ///< the arrival of the last member that this one was told of
        qsizetype pagedIds = 0; ///< how many this one was told of
    };

    qint32 m_cid;
    RoomPlan m_plan;
    QHash<QString, Place> m_places;
    std::map<quint64, QString> m_present;
    quint64 m_lastArrival = 0;
    qsizetype m_admitted = 0;
};

} // namespace messenger
