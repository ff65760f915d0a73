// The command line: whatever another program starts the chat with.

#include "core/command_line.h"

#include "fuzzing.h"

namespace {

void checkAny(const CommandLine &line, const QString &text)
{
    const auto port = line.portText();
    require(!port || (!port->isEmpty() && !port->contains(u'~')));
    require(!port || text.contains(QString(u"-port" + *port + u'~')));
    require(!line.roomName().contains(u'~') && text.contains(line.roomName()));
    require(line.roomId().has_value() == text.contains(u"-cid"));
    require(line.showCategories() == text.contains(u"-showcat"));
}

/// What the messenger would write of these, in an order of its own, is read as it was meant.
void checkWritten(QString port, qint32 room, QString name, bool showCategories, bool nameFirst)
{
    for (QString *value : {&port, &name}) {
        value->remove(u'~').remove(u'-');
    }
    const QString portOption = u"-port" + port + u'~';
    const QString roomOption = u"-cid" + QString::number(room) + u" -cnm" + name + u'~';
    const QString options = nameFirst ? roomOption + portOption : portOption + roomOption;
    QStringList arguments = options.split(u' ');
    if (showCategories) {
        arguments += QStringLiteral("-showcat");
    }
    const CommandLine line(arguments);
    require(line.portText().value_or(QString()) == port);
    require(line.roomId() == room && line.roomName() == name);
    require(line.showCategories() == showCategories);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    Input input(data, size);
    const QString text = QString::fromUtf8(input.rest());
    checkAny(CommandLine(text.split(u' ')), text);
    const unsigned char choices = input.byte();
    const qint32 room = input.byte() << 24 | input.byte() << 16 | input.byte();
    const QString port = QString::fromUtf8(input.part());
    checkWritten(port, room, QString::fromUtf8(input.part()), (choices & 1) != 0, (choices & 2) != 0);
    return 0;
}
