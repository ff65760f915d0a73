#include "link/requests.h"

#include "core/attribute_text.h"
#include "link/xml_codec.h"

#include <initializer_list>

namespace {

struct Attribute
{
    QStringView name;
    QString value;
};

/// A value as it is, unless it would end its attribute: ids and names are a stranger's, and a request must
/// stay one.
QString unbroken(QStringView value)
{
    return value.contains(u'"') || value.contains(u'\\') ? EscapeXML(value) : value.toString();
}

QString opening(QStringView name, std::initializer_list<Attribute> attributes)
{
    QString text = u'<' + name.toString();
    for (const Attribute &attribute : attributes) {
        text += u' ' + attribute.name.toString() + u"=\"" + attribute.value + u'"';
    }
    return text;
}

QString element(QStringView name, std::initializer_list<Attribute> attributes = {})
{
    return opening(name, attributes) + u"/>";
}

QString element(QStringView name, std::initializer_list<Attribute> attributes, QStringView content)
{
    return opening(name, attributes) + u'>' + EscapeXML(content) + u"</" + name.toString() + u'>';
}

} // namespace

namespace Requests {

QString getSkin()
{
    return element(u"GETSKIN");
}

QString getMyDetails()
{
    return element(u"GETMYDETAILS");
}

QString getCategories()
{
    return element(u"GETCATEGORIES");
}

QString getChannels(QStringView groupingCode, int start)
{
    return element(u"GETCHANNELS", {{u"g", unbroken(groupingCode)}, {u"st", QString::number(start)}});
}

QString createChannel(QStringView groupingCode, QStringView roomName, bool isPrivate)
{
    return element(u"CREATECHANNEL", {{u"g", unbroken(groupingCode)},
                                      {u"nm", roomName.toString()},
                                      {u"ty", isPrivate ? QStringLiteral("2") : QStringLiteral("1")}});
}

QString getChannelContents(qint32 roomId, int start)
{
    return element(u"GETCHANNELCONTENTS",
                   {{u"cid", QString::number(roomId)}, {u"st", QString::number(start)}});
}

QString requestJoinChannel(qint32 roomId, QStringView myId, QStringView myNickname)
{
    return element(
        u"REQUESTJOINCHANNEL",
        {{u"cid", QString::number(roomId)}, {u"id", unbroken(myId)}, {u"nm", EscapeXML(myNickname)}});
}

QString allowJoinChannel(qint32 roomId, QStringView userId, QStringView myId, bool reject)
{
    return element(u"ALLOWJOINCHANNEL", {{u"cid", QString::number(roomId)},
                                         {u"id", unbroken(userId)},
                                         {u"tid", unbroken(myId)},
                                         {u"r", reject ? QStringLiteral("200") : QStringLiteral("0")}});
}

QString dropUser(qint32 roomId, QStringView myId, QStringView userId, QStringView nickname)
{
    const QString command = u"DROPUSER userid=" + withoutControlCharacters(userId) + valueEnd + u" nick=" +
                            withoutControlCharacters(nickname) + valueEnd;
    return element(u"CCMD", {{u"cid", QString::number(roomId)}, {u"id", unbroken(myId)}}, command);
}

QString leaveChannel(qint32 roomId)
{
    return element(u"LEAVECHANNEL", {{u"cid", QString::number(roomId)}});
}

QString destroyChannel(qint32 roomId)
{
    return element(u"DESTROYCHANNEL", {{u"cid", QString::number(roomId)}});
}

QString notifyJoinChannel(qint32 roomId, QStringView myId, QStringView targetId, QStringView roomName)
{
    return element(u"NOTIFYJOINCHANNEL", {{u"cid", QString::number(roomId)},
                                          {u"id", unbroken(myId)},
                                          {u"tid", unbroken(targetId)},
                                          {u"cnm", EscapeXML(roomName)}});
}

QString message(qint32 roomId, QStringView myId, QStringView text, QStringView targetId)
{
    const QString room = QString::number(roomId);
    if (targetId.isEmpty()) {
        return element(u"CMSG", {{u"cid", room}, {u"id", unbroken(myId)}}, text);
    }
    return element(u"CMSG", {{u"cid", room}, {u"id", unbroken(myId)}, {u"tid", unbroken(targetId)}}, text);
}

QString getPyloxUsers()
{
    return element(u"GETPYLOXUSERS");
}

QString userDetails(QStringView userId)
{
    return element(u"USERDETAILS", {{u"id", unbroken(userId)}});
}

QString inviteUser(QStringView userId, QStringView nickname)
{
    return element(u"INVITEUSER", {{u"id", unbroken(userId)}, {u"nick", unbroken(nickname)}});
}

} // namespace Requests
