#pragma once

#include "messenger/codes.h"
#include "messenger/room.h"
#include "messenger/user.h"

#include <QHash>
#include <QList>

#include <map>
#include <vector>

namespace messenger {

class WorldListener;

/// One category of rooms. The key of a nested one is its parent's key, "-" and its own code.
struct Category
{
    QString code;
    QString name;
    QList<Category> children;
};

/// All that the messenger knows: users and their contacts, categories, rooms, and who is in which. Every
/// change goes through here, is checked for the right to make it, and is told to the listeners. No sockets,
/// no time.
///
/// Users are named by their id, rooms by their number. An operation answers Success only when it did what it
/// was asked for, or when that was so already.
class World
{
public:
    static constexpr qsizetype maximumRooms = 1000;
    static constexpr qsizetype maximumRoomsOfOne = 20;
    static constexpr qsizetype maximumContacts = 1000;

    /// The rooms and their hosts that are there from the start, and these users.
    explicit World(const QList<User> &table);

    /// The listener must outlive the world's last change.
    void addListener(WorldListener &listener) { m_listeners.push_back(&listener); }

    // Users
    [[nodiscard]] const User *user(const QString &id) const;
    [[nodiscard]] QStringList userIds() const { return m_order; }
    /// The ids of the persons that are connected.
    [[nodiscard]] QStringList connected() const { return m_connected; }
    /// The next person of the table that is free, or one that is made up when the table is used up.
    QString connectPerson();
    void disconnectPerson(const QString &id);
    /// Guests are known to all persons of the table as contacts when they are to be.
    void addGuest(const QString &id, const QString &nickname, bool isContact);
    bool setMood(const QString &id, qint32 status, qint32 mood);
    bool rename(const QString &id, const QString &nickname);
    Code addContact(const QString &id, const QString &contactId);

    // Categories and rooms
    [[nodiscard]] const QList<Category> &categories() const { return m_categories; }
    [[nodiscard]] bool hasCategory(QStringView key) const;
    [[nodiscard]] const Room *room(qint32 cid) const;
    [[nodiscard]] const std::map<qint32, Room> &rooms() const { return m_rooms; }
    /// The rooms of a category that the user may see.
    [[nodiscard]] QList<const Room *> listed(const QString &userId, QStringView category) const;

    struct Created
    {
        Code code = Code::Success;
        qint32 cid = 0;
    };
    Created createRoom(const QString &ownerId, const QString &category, const QString &name, bool isPrivate);
    /// By its owner, or with an empty id by the companion itself.
    Code closeRoom(const QString &closedBy, qint32 cid);

    // Membership
    Code ask(const QString &userId, qint32 cid);
    Code answer(const QString &ownerId, qint32 cid, const QString &joinerId, bool accept);
    Code enter(const QString &userId, qint32 cid);
    /// Succeeds whether the user was in the room or not. The owner's leaving closes the room.
    Code leave(const QString &userId, qint32 cid);
    /// Removes a member, who hears of it with the others. By the owner, or with an empty id by the companion
    /// itself in the owner's name.
    Code drop(const QString &ownerId, qint32 cid, const QString &memberId);
    /// The next page of the room's members, for one of them.
    Code nextContents(const QString &userId, qint32 cid, ContentsPage &page);

    // Talk
    Code say(const QString &senderId, qint32 cid, const QString &text);
    Code whisper(const QString &senderId, qint32 cid, const QString &recipientId, const QString &text);
    /// The same from any user to any other, in a room or not.
    Code whisperAnywhere(const QString &senderId, const QString &recipientId, const QString &text);
    Code command(const QString &senderId, qint32 cid, const QString &command);

    // Skin and server
    [[nodiscard]] QString skin() const { return m_skin; }
    void setSkin(const QString &path);
    [[nodiscard]] bool isOnline() const { return m_online; }
    /// Without its server the messenger has no rooms of persons, and no person is in a room.
    void setOnline(bool online);

private:
    template <typename... Parameters, typename... Arguments>
    void tell(void (WorldListener::*event)(Parameters...), const Arguments &...arguments);

    void addHost(const QString &id, const QString &nickname, const RoomPlan &plan);
    void addUser(const User &user);
    [[nodiscard]] User *find(const QString &id);
    [[nodiscard]] Room *find(qint32 cid);
    void removeRoom(qint32 cid, const QString &closedBy);
    void removeFrom(Room &room, const User &user);
    [[nodiscard]] qint32 commonRoom(const QString &a, const QString &b) const;
    [[nodiscard]] Code mayTalk(const QString &senderId, qint32 cid, QStringView text) const;

    QHash<QString, User> m_users;
    QStringList m_order; ///< ids, persons of the table first
    QStringList m_connected;
    QList<Category> m_categories;
    std::map<qint32, Room> m_rooms;
    qint32 m_lastCid = 0;
    QString m_skin;
    bool m_online = true;
    std::vector<WorldListener *> m_listeners;
};

} // namespace messenger
