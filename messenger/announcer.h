#pragma once

#include "messenger/world_listener.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace messenger {

class World;

/// One message and the persons it goes to.
struct Delivery
{
    QStringList recipients; ///< ids of connected persons
    QString message;        ///< with its envelope, without the NUL
};

/// Turns what happens in the world into messages, and says who is told. The messages are kept until somebody
/// takes them, so that the reply to a request can go out before what the request caused.
class Announcer final : public WorldListener
{
public:
    explicit Announcer(const World &world) : m_world(world) {}

    /// What has gathered, in the order in which it happened.
    [[nodiscard]] std::vector<Delivery> take();

    void asked(const Room &room, const User &user) override;
    void answered(const Room &room, const User &user, Code code) override;
    void entered(const Room &room, const User &user) override;
    void left(const Room &room, const User &user) override;
    void gaveUp(const Room &room, const User &user) override;
    void closed(const Room &room, const QString &closedBy) override;
    void said(const Room &room, const User &sender, const QString &text) override;
    void whispered(qint32 cid, const User &sender, const User &recipient, const QString &text) override;
    void commanded(const Room &room, const User &sender, const QString &command) override;
    void moodChanged(const User &user) override;
    void renamed(const User &user) override;
    void cameOnline(const User &user) override;
    void skinChanged(const QString &path) override;
    void serverLost() override;
    void serverReturned() override;

private:
    void announce(const QStringList &recipients, const QString &payload);
    [[nodiscard]] QStringList personsIn(const Room &room, const QString &except = {}) const;
    [[nodiscard]] QStringList acquaintances(const User &user) const;
    [[nodiscard]] QStringList ifConnected(const QString &id) const;

    const World &m_world;
    std::vector<Delivery> m_deliveries;
};

} // namespace messenger
