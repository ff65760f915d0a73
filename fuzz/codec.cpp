// Framing and codec: whatever the socket brings. What parses must survive being built and parsed again.

#include "link/message_framer.h"
#include "link/xml_codec.h"

#include <algorithm>
#include <cstdlib>

namespace {

void parse(QByteArrayView message)
{
    const QString text = QString::fromLatin1(message);
    XMLDocument tree;
    qsizetype position = 1;
    if (!ParseElement(text, tree.root, position)) {
        return;
    }
    const QString built = BuildXML(tree.root);
    XMLDocument again;
    position = 1;
    // A name with a space or a quote in it is legal to read and cannot be written so that it reads the same.
    if (ParseElement(built, again.root, position) && BuildXML(again.root).size() > built.size()) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    MessageFramer framer;
    QByteArrayView rest(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    while (!rest.isEmpty()) {
        const auto room = framer.tail();
        const qsizetype count = std::min({rest.size(), static_cast<qsizetype>(room.size()), qsizetype(7)});
        std::copy_n(rest.begin(), count, room.begin());
        framer.commit(count);
        rest = rest.sliced(count);
        while (const auto message = framer.next()) {
            parse(*message);
        }
    }
    parse({reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)});
    return 0;
}
