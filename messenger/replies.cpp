#include "messenger/replies.h"

#include "link/xml_codec.h"

namespace messenger {

ElementText::ElementText(QStringView name) : m_name(name.toString()), m_text(u'<' + m_name) {}

ElementText &ElementText::attribute(QStringView name, QStringView value)
{
    m_text += u' ' % name % u"=\"" % EscapeXML(value) % u'"';
    return *this;
}

ElementText &ElementText::attribute(QStringView name, qint64 value)
{
    return attribute(name, QString::number(value));
}

ElementText &ElementText::child(QStringView element)
{
    open();
    m_text += element;
    return *this;
}

ElementText &ElementText::text(QStringView content)
{
    if (!content.isEmpty()) {
        open();
        m_text += EscapeXML(content);
    }
    return *this;
}

void ElementText::open()
{
    if (!m_isOpen) {
        m_isOpen = true;
        m_text += u'>';
    }
}

QString ElementText::end()
{
    return m_isOpen ? QString(m_text % u"</" % m_name % u'>') : QString(m_text % u"/>");
}

namespace {

QString categoryEntry(const Category &category)
{
    ElementText entry(u"C");
    entry.attribute(u"g", category.code).attribute(u"nm", category.name);
    for (const Category &child : category.children) {
        entry.child(categoryEntry(child));
    }
    return entry.end();
}

QString roomEntry(const Room &room)
{
    return ElementText(u"R")
        .attribute(u"g", room.plan().category)
        .attribute(u"cid", room.cid())
        .attribute(u"cnm", room.plan().name)
        .attribute(u"mc", room.presentCount())
        .end();
}

QString memberEntry(const User &user, bool isPresent)
{
    return ElementText(u"E")
        .attribute(u"id", user.id)
        .attribute(u"nm", user.nickname)
        .attribute(u"p", isPresent ? 1 : 0)
        .attribute(u"s", user.status)
        .attribute(u"m", user.mood)
        .end();
}

} // namespace

QString envelope(QStringView key, QStringView payload)
{
    return u"<MSG><V mk=\"" % EscapeXML(key) % u"\"/>" % payload % u"</MSG>";
}

QString codeReply(QStringView name, Code code)
{
    return ElementText(name).code(code).end();
}

QString skinReply(const QString &path)
{
    return ElementText(u"SKIN").attribute(u"value", path).end();
}

QString detailsReply(const User &user)
{
    return ElementText(u"MYDETAILS")
        .attribute(u"id", user.id)
        .attribute(u"nick", user.nickname)
        .attribute(u"s", user.status)
        .attribute(u"m", user.mood)
        .end();
}

QString categoriesReply(const QList<Category> &categories)
{
    ElementText list(u"CTL");
    for (const Category &category : categories) {
        list.child(categoryEntry(category));
    }
    return list.end();
}

QString roomsReply(const QList<const Room *> &rooms)
{
    ElementText list(u"CHL");
    for (const Room *room : rooms) {
        list.child(roomEntry(*room));
    }
    return list.end();
}

QString createdReply(const World::Created &created)
{
    ElementText reply(u"ACC");
    reply.code(created.code);
    if (created.code == Code::Success) {
        reply.attribute(u"cid", created.cid);
    }
    return reply.end();
}

QString contactsReply(const World &world, const User &user)
{
    ElementText list(u"PYLOXUSERS");
    for (const QString &id : user.contacts) {
        if (const User *contact = world.user(id)) {
            list.child(ElementText(u"U").attribute(u"id", id).attribute(u"nick", contact->nickname).end());
        }
    }
    return list.end();
}

QString contentsReply(const World &world, const Room &room, const ContentsPage &page)
{
    ElementText list(u"KCC");
    list.attribute(u"cid", room.cid())
        .code(Code::Success)
        .attribute(u"t", page.total)
        .attribute(u"id", room.plan().ownerId);
    for (const QString &id : page.ids) {
        list.child(memberEntry(*world.user(id), true));
    }
    return list.end();
}

QString roomCodeReply(QStringView name, qint32 cid, Code code)
{
    return ElementText(name).attribute(u"cid", cid).code(code).end();
}

QString joinRequestEvent(qint32 cid, const User &joiner)
{
    return ElementText(u"QJC")
        .attribute(u"cid", cid)
        .attribute(u"id", joiner.id)
        .attribute(u"nm", joiner.nickname)
        .end();
}

QString joinAnswerEvent(const Room &room, Code code)
{
    return ElementText(u"AJC")
        .attribute(u"cid", room.cid())
        .code(code)
        .attribute(u"tid", room.plan().ownerId)
        .end();
}

QString presenceEvent(qint32 cid, const User &user, bool isPresent)
{
    return ElementText(u"KCC")
        .attribute(u"cid", cid)
        .code(Code::Success)
        .child(memberEntry(user, isPresent))
        .end();
}

QString roomClosedEvent(qint32 cid)
{
    return ElementText(u"CLD").attribute(u"cid", cid).end();
}

QString messageEvent(qint32 cid, const User &sender, const User *recipient, QStringView text)
{
    return ElementText(u"RCMSG")
        .attribute(u"cid", cid)
        .attribute(u"id", sender.id)
        .attribute(u"tid", recipient != nullptr ? QStringView(recipient->id) : QStringView(u"0"))
        .text(text)
        .end();
}

QString commandEvent(qint32 cid, const User &sender, QStringView command)
{
    return ElementText(u"RCCMD").attribute(u"cid", cid).attribute(u"id", sender.id).text(command).end();
}

QString moodEvent(const User &user)
{
    return ElementText(u"STATUSMOOD")
        .attribute(u"id", user.id)
        .attribute(u"s", user.status)
        .attribute(u"m", user.mood)
        .end();
}

QString nameEvent(const User &user)
{
    return ElementText(u"NAMECHANGE").attribute(u"id", user.id).attribute(u"n", user.nickname).end();
}

QString onlineEvent(const User &user)
{
    return ElementText(u"USERONLINE").attribute(u"nick", user.nickname).end();
}

QString skinEvent(const QString &path)
{
    return ElementText(u"SKINCHANGE").attribute(u"value", path).end();
}

QString serverEvent(bool isOnline)
{
    return ElementText(isOnline ? u"ONLINE" : u"OFFLINE").end();
}

QList<QStringView> eventNames()
{
    return {u"QJC",        u"AJC",        u"KCC",        u"CLD",        u"RCMSG",   u"RCCMD",
            u"STATUSMOOD", u"NAMECHANGE", u"USERONLINE", u"SKINCHANGE", u"OFFLINE", u"ONLINE"};
}

} // namespace messenger
