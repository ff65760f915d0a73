// Framing and codec: whatever the socket brings, and however the system has cut it. The messages are those
// between the NULs, up to the limit; what parses is built and parsed again, and is the same then.

#include "fuzzing.h"
#include "link/message_framer.h"
#include "link/xml_codec.h"

#include <QList>

#include <algorithm>

namespace {

QList<QByteArray> messagesOf(QByteArrayView stream, qsizetype limit)
{
    QList<QByteArray> messages = stream.toByteArray().split('\0');
    messages.removeLast(); // not complete
    messages.removeIf([limit](const QByteArray &message) { return message.size() > limit; });
    return messages;
}

QList<QByteArray> framed(QByteArrayView stream, qsizetype limit, qsizetype mostAtOnce)
{
    MessageFramer framer(limit);
    QList<QByteArray> messages;
    while (!stream.isEmpty()) {
        const auto room = framer.tail();
        const qsizetype count = std::min({stream.size(), static_cast<qsizetype>(room.size()), mostAtOnce});
        std::copy_n(stream.begin(), count, room.begin());
        framer.commit(count);
        stream = stream.sliced(count);
        while (const auto message = framer.next()) {
            messages += message->toByteArray();
        }
        require(framer.isDrained() && framer.pendingBytes() <= limit + MessageFramer::blockSize);
    }
    return messages;
}

/// Some inputs follow so long a beginning that a block ends inside them.
void frame(QByteArrayView input, qsizetype cut, unsigned char choice)
{
    const qsizetype before = choice % 16 == 0 ? MessageFramer::blockSize - 2 * cut : 0;
    const QByteArray stream = QByteArray(before, 'x') + input;
    const qsizetype limits[] = {cut, 4 * cut, before + 2 * cut, MessageFramer::defaultLimit};
    const qsizetype limit = limits[choice / 16 % 4];
    const QList<QByteArray> expected = messagesOf(stream, limit);
    require(framed(stream, limit, stream.size()) == expected);
    require(framed(stream, limit, before + 1 + cut % 7) == expected);
}

bool isContent(const clsXMLPart &part)
{
    return part.PartName == u"cnode";
}

/// The content has its place, and an empty one is as good as none.
QStringList partsOf(const clsXMLMessage &element)
{
    QStringList parts = {element.MsgName.toString(), element.value(u"cnode").value_or(u"").toString()};
    for (const clsXMLPart &part : element.XMLParts) {
        require(part.PartName.isEmpty() || element.value(part.PartName) == part.PartValue);
        if (!isContent(part)) {
            parts += {part.PartName.toString(), part.PartValue.toString()};
        }
    }
    return parts;
}

bool isSame(const clsXMLMessage &one, const clsXMLMessage &other)
{
    return partsOf(one) == partsOf(other) &&
           std::ranges::equal(one.XMLMessage, other.XMLMessage,
                              [](const auto &a, const auto &b) { return isSame(a, b); });
}

void parse(const QString &text)
{
    require(UnescapeXML(EscapeXML(text)) == text);
    XMLDocument tree;
    qsizetype position = 1;
    const bool parsed = ParseElement(text, tree.root, position);
    require(position >= 0 && position <= text.size() + 1);
    if (!parsed) {
        return;
    }
    const QString built = BuildXML(tree.root);
    XMLDocument again;
    position = 1;
    require(ParseElement(built, again.root, position) && position == built.size());
    require(isSame(tree.root, again.root));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    Input input(data, size);
    parse(QString::fromLatin1(input.rest()));
    const unsigned char cut = input.byte();
    const unsigned char choice = input.byte();
    frame(input.rest(), cut, choice);
    while (!input.atEnd()) {
        parse(QString::fromUtf8(input.part()));
    }
    return 0;
}
