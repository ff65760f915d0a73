#include "link/xml_codec.h"
#include "messenger/replies.h"
#include "messenger/requests.h"
#include "platform/text_file.h"
#include "support/text.h"

#include <QSet>
#include <QStringList>

TEST(ProtocolDocument, NamesAndShowsEveryRequestAndEvent)
{
    const QString document =
        readTextFile(QStringLiteral(PYLOX_SOURCE_DIR "/docs/protocol.md")).value_or(QString());
    QSet<QString> names;
    bool isExample = false;
    for (const QString &line : document.split(u'\n')) {
        if (line.startsWith(u"```")) {
            isExample = line == u"```message";
        } else if (isExample) {
            XMLDocument parsed;
            qsizetype position = 1;
            ASSERT_TRUE(ParseElement(line, parsed.root, position)) << line.toStdString();
            EXPECT_EQ(position, line.size()) << line.toStdString();
            EXPECT_EQ(BuildXML(parsed.root), line) << "not escaped as it should be";
            const clsXMLMessage *payload = parsed.root.XMLMessage.Item(2);
            names.insert(payload != nullptr ? payload->MsgName.toString() : QString());
        }
    }
    for (const QStringView name : messenger::Requests::names() + messenger::eventNames()) {
        EXPECT_TRUE(names.contains(name.toString())) << "no example of " << name.toString().toStdString();
        EXPECT_TRUE(document.contains(u'`' + name + u'`')) << name.toString().toStdString();
    }
}
