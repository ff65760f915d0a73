#pragma once

#include "messenger/codes.h"

#include <QList>
#include <QString>

class clsXMLMessage;

namespace messenger {

class World;

/// Answers the requests of clients by asking and changing the world. Who asks is known by the connection, and
/// what a request says about its sender is not looked at.
class Requests
{
public:
    explicit Requests(World &world) : m_world(world) {}

    /// The payload of the reply. It is empty when the reply is the mark alone, which clients take for a
    /// request that failed: nobody needs to wait for an answer that will not come.
    [[nodiscard]] QString answer(const QString &userId, const clsXMLMessage &request);

    /// The names of all requests that are known.
    [[nodiscard]] static QList<QStringView> names();

private:
    struct Entry;
    static const Entry table[];

    [[nodiscard]] static const Entry *find(QStringView name);

    QString getSkin(const QString &userId, const clsXMLMessage &request);
    QString getMyDetails(const QString &userId, const clsXMLMessage &request);
    QString getCategories(const QString &userId, const clsXMLMessage &request);
    QString getChannels(const QString &userId, const clsXMLMessage &request);
    QString getContents(const QString &userId, const clsXMLMessage &request);
    QString getPyloxUsers(const QString &userId, const clsXMLMessage &request);
    QString createChannel(const QString &userId, const clsXMLMessage &request);
    QString destroyChannel(const QString &userId, const clsXMLMessage &request);
    QString requestJoin(const QString &userId, const clsXMLMessage &request);
    QString allowJoin(const QString &userId, const clsXMLMessage &request);
    QString notifyJoin(const QString &userId, const clsXMLMessage &request);
    QString leaveChannel(const QString &userId, const clsXMLMessage &request);
    QString sendMessage(const QString &userId, const clsXMLMessage &request);
    QString sendCommand(const QString &userId, const clsXMLMessage &request);
    QString userDetails(const QString &userId, const clsXMLMessage &request);
    QString inviteUser(const QString &userId, const clsXMLMessage &request);

    World &m_world;
};

} // namespace messenger
