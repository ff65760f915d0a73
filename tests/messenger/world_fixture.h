#pragma once

#include "link/xml_codec.h"
#include "messenger/announcer.h"
#include "messenger/default_world.h"
#include "messenger/replies.h"
#include "messenger/requests.h"
#include "messenger/world.h"
#include "support/text.h"

#include <QMap>

namespace messenger {

/// A world with the built-in users, and what its messenger would say to each of them. No sockets.
struct Scene
{
    Scene() { world.addListener(announcer); }

    /// The payload of the reply to the request, which is given as text.
    QString answer(const QString &userId, const QString &request)
    {
        XMLDocument document;
        qsizetype position = 1;
        EXPECT_TRUE(ParseElement(request, document.root, position)) << request.toStdString();
        return requests.answer(userId, document.root);
    }

    /// The request gets this reply, and of the three only these are told something: this.
    void expect(const QString &userId, const QString &request, const QString &reply,
                const QMap<QString, QStringList> &telling = {})
    {
        EXPECT_EQ(answer(userId, request), reply) << request.left(80).toStdString();
        for (const QString &id : {robin, sasha, noor}) {
            EXPECT_EQ(told(id), telling.value(id)) << request.left(80).toStdString();
        }
    }

    /// What was sent to the user unasked since the last call, without the envelopes.
    QStringList told(const QString &userId)
    {
        const QString head = u"<MSG><V mk=\"MSG\"/>"_s;
        for (const Delivery &delivery : announcer.take()) {
            EXPECT_TRUE(delivery.message.startsWith(head)) << delivery.message.toStdString();
            for (const QString &id : delivery.recipients) {
                m_told[id].append(delivery.message.sliced(head.size()).chopped(6));
            }
        }
        return m_told.take(userId);
    }

    void forget()
    {
        std::ignore = announcer.take();
        m_told.clear();
    }

    /// Brings a member into a room whatever its door.
    void bringIn(const QString &userId, qint32 cid)
    {
        world.ask(userId, cid);
        world.answer(world.room(cid)->plan().ownerId, cid, userId, true);
        ASSERT_EQ(world.enter(userId, cid), Code::Success);
        forget();
    }

    World world{defaultUsers()};
    Announcer announcer{world};
    Requests requests{world};
    QString robin = world.connectPerson(); ///< u1
    QString sasha = world.connectPerson(); ///< u2
    QString noor = world.connectPerson();  ///< u3

private:
    QMap<QString, QStringList> m_told;
};

struct WorldTest : testing::Test, Scene
{};

} // namespace messenger
