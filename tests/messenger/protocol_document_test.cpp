#include "link/xml_codec.h"
#include "messenger/replies.h"
#include "messenger/requests.h"
#include "platform/text_file.h"
#include "support/text.h"

#include <QSet>
#include <QStringList>

#include <gtest/gtest.h>

namespace {

QString document()
{
    return readTextFile(QStringLiteral(PYLOX_SOURCE_DIR "/docs/protocol.md")).value_or(QString());
}

/// The lines of all blocks that are marked as examples.
QStringList examples()
{
    QStringList lines;
    bool inside = false;
    for (const QString &line : document().split(u'\n')) {
        if (line.startsWith(u"```")) {
            inside = line == u"```message";
        } else if (inside) {
            lines.append(line);
        }
    }
    return lines;
}

} // namespace

TEST(ProtocolDocument, ItsExamplesAreMessages)
{
    QSet<QString> names;
    for (const QString &line : examples()) {
        XMLDocument parsed;
        qsizetype position = 1;
        ASSERT_TRUE(ParseElement(line, parsed.root, position)) << line.toStdString();
        EXPECT_EQ(position, line.size()) << line.toStdString();
        EXPECT_EQ(BuildXML(parsed.root), line) << "not escaped as it should be";
        const clsXMLMessage *payload = parsed.root.XMLMessage.Item(2);
        names.insert(payload != nullptr ? payload->MsgName.toString() : QString());
    }
    for (const QStringView name : messenger::Requests::names() + messenger::eventNames()) {
        EXPECT_TRUE(names.contains(name.toString())) << "no example of " << name.toString().toStdString();
    }
}

TEST(ProtocolDocument, NamesEveryRequestAndEvent)
{
    const QString text = document();
    for (const QStringView name : messenger::Requests::names() + messenger::eventNames()) {
        EXPECT_TRUE(text.contains(u'`' + name + u'`')) << name.toString().toStdString();
    }
}
