#pragma once

#include "link/xml_codec.h"
#include "messenger/announcer.h"
#include "messenger/default_world.h"
#include "messenger/replies.h"
#include "messenger/requests.h"
#include "messenger/world.h"
#include "support/text.h"

#include <QMap>

#include <gtest/gtest.h>

namespace messenger {

/// A world with the built-in users, and what its messenger would say to each of them. No sockets.
class WorldTest : public testing::Test
{
protected:
    WorldTest() { world.addListener(announcer); }

    /// The payload of the reply to the request, which is given as text.
    QString answer(const QString &userId, const QString &request)
    {
        XMLDocument document;
        qsizetype position = 1;
        EXPECT_TRUE(ParseElement(request, document.root, position)) << request.toStdString();
        return requests.answer(userId, document.root);
    }

    /// What was sent to the user unasked since the last call, without the envelopes.
    QStringList told(const QString &userId)
    {
        for (const Delivery &delivery : announcer.take()) {
            for (const QString &id : delivery.recipients) {
                m_told[id].append(payload(delivery.message));
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
    static QString payload(const QString &message)
    {
        const QString head = u"<MSG><V mk=\"MSG\"/>"_s;
        EXPECT_TRUE(message.startsWith(head)) << message.toStdString();
        return message.sliced(head.size()).chopped(6);
    }

    QMap<QString, QStringList> m_told;
};

} // namespace messenger
