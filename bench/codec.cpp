// The codec on a mix of messages as they come in an evening, beside a fast XML parser on the same messages.

#include "bench/figures.h"
#include "link/xml_codec.h"
#include "platform/code_page.h"

#include <QStringList>

#include <cstdlib>
#include <memory>
#include <pugixml.hpp>
#include <vector>

namespace {

constexpr int runs = 7;
constexpr int rounds = 200;

QString enveloped(const QString &payload)
{
    return u"<MSG><V mk=\"MSG\"/>" + payload + u"</MSG>";
}

/// Mostly talk, some events, now and then a list. The escapes are the wire's; to an XML parser a backslash is
/// an ordinary character, so that both read the same bytes.
QStringList messages()
{
    QStringList mix;
    for (int at = 0; at < 80; ++at) {
        const QString id = u"u1" + QString::number(1000 + at);
        mix += enveloped(u"<RCMSG cid=\"4711\" id=\"" + id +
                         u"\" tid=\"0\">\\[SMSG\\]\\[b\\]Hello everybody, this is line number " +
                         QString::number(at) + u" of a long evening :-) \\/ and so on.~</RCMSG>");
    }
    for (int at = 0; at < 20; ++at) {
        const QString id = u"u1" + QString::number(1000 + at);
        mix += enveloped(u"<STATUSMOOD id=\"" + id + u"\" s=\"12\" m=\"7\"/>");
        mix += u"<MSG><V mk=\"C" + QString::number(at) + u"\"/><ACKSM/></MSG>";
        mix += enveloped(u"<KCC cid=\"4711\" r=\"0\"><E id=\"" + id +
                         u"\" nm=\"Somebody Special\" p=\"1\" s=\"11\" m=\"26\"/></KCC>");
    }
    QString contents = QStringLiteral("<KCC cid=\"4711\" r=\"0\" t=\"300\" id=\"u7\">");
    QString rooms = QStringLiteral("<CHL>");
    for (int at = 0; at < 100; ++at) {
        const QString number = QString::number(at);
        contents += u"<E id=\"u" + number + u"\" nm=\"Member number " + number + u"\" s=\"11\" m=\"7\"/>";
        rooms +=
            u"<R g=\"1-3\" cid=\"" + number + u"\" cnm=\"The room of number " + number + u"\" mc=\"12\"/>";
    }
    mix += enveloped(contents + u"</KCC>");
    mix += enveloped(rooms + u"</CHL>");
    return mix;
}

void require(bool condition)
{
    if (!condition) {
        std::abort(); // a bench of a parser that refuses its input measures nothing
    }
}

/// From the bytes that the socket gave to the tree and back to nothing.
void receive(const std::vector<QByteArray> &mix, const CodePage &codePage)
{
    for (int round = 0; round < rounds; ++round) {
        for (const QByteArray &bytes : mix) {
            const QString text = codePage.decode(bytes);
            XMLDocument tree;
            qsizetype position = 1;
            require(ParseElement(text, tree.root, position));
        }
    }
}

void parse(const QStringList &mix)
{
    for (int round = 0; round < rounds; ++round) {
        for (const QString &text : mix) {
            XMLDocument tree;
            qsizetype position = 1;
            require(ParseElement(text, tree.root, position));
        }
    }
}

void parseAsXml(const std::vector<QByteArray> &mix)
{
    for (int round = 0; round < rounds; ++round) {
        for (const QByteArray &bytes : mix) {
            pugi::xml_document document;
            require(document.load_buffer(bytes.constData(), static_cast<std::size_t>(bytes.size()),
                                         pugi::parse_default, pugi::encoding_utf8));
        }
    }
}

struct StringWriter final : pugi::xml_writer
{
    void write(const void *data, std::size_t size) override
    {
        text.append(static_cast<const char *>(data), size);
    }
    std::string text;
};

/// Nanoseconds a message, one figure a run.
struct Times
{
    std::vector<double> receive, parse, build, xmlParse, xmlBuild, ratio, buildRatio;
};

void measure(Times &times, const QStringList &mix, const std::vector<QByteArray> &bytes)
{
    const double perMessage = 1e9 / (rounds * static_cast<double>(mix.size()));
    const CodePage codePage;
    std::vector<std::unique_ptr<XMLDocument>> trees;
    std::vector<std::unique_ptr<pugi::xml_document>> xmlTrees;
    for (qsizetype at = 0; at < mix.size(); ++at) {
        qsizetype position = 1;
        require(ParseElement(mix[at], trees.emplace_back(std::make_unique<XMLDocument>())->root, position));
        const QByteArray &one = bytes[static_cast<std::size_t>(at)];
        require(xmlTrees.emplace_back(std::make_unique<pugi::xml_document>())
                    ->load_buffer(one.constData(), static_cast<std::size_t>(one.size())));
    }
    times.receive.push_back(perMessage * secondsFor([&] { receive(bytes, codePage); }));
    times.parse.push_back(perMessage * secondsFor([&] { parse(mix); }));
    times.xmlParse.push_back(perMessage * secondsFor([&] { parseAsXml(bytes); }));
    times.build.push_back(perMessage * secondsFor([&] {
                              for (int round = 0; round < rounds; ++round) {
                                  for (const auto &tree : trees) {
                                      require(!BuildXML(tree->root).isEmpty());
                                  }
                              }
                          }));
    times.xmlBuild.push_back(perMessage * secondsFor([&] {
                                 for (int round = 0; round < rounds; ++round) {
                                     for (const auto &tree : xmlTrees) {
                                         StringWriter writer;
                                         tree->save(writer, "",
                                                    pugi::format_raw | pugi::format_no_declaration,
                                                    pugi::encoding_utf8);
                                         require(!writer.text.empty());
                                     }
                                 }
                             }));
    times.ratio.push_back(times.receive.back() / times.xmlParse.back());
    times.buildRatio.push_back(times.build.back() / times.xmlBuild.back());
}

} // namespace

int main()
{
    const QStringList mix = messages();
    std::vector<QByteArray> bytes;
    double size = 0;
    for (const QString &message : mix) {
        bytes.push_back(message.toLatin1());
        size += static_cast<double>(message.size());
    }
    Times times;
    for (int run = 0; run < runs; ++run) {
        measure(times, mix, bytes);
    }
    const double bytesPerMessage = size / static_cast<double>(mix.size());
    printFigure("codec.message-size", bytesPerMessage, "bytes");
    printFigure("codec.parse", median(times.parse), "ns/message");
    printFigure("codec.receive", median(times.receive), "ns/message");
    printFigure("codec.receive-throughput", bytesPerMessage / median(times.receive) * 1000, "MB/s");
    printFigure("codec.pugixml-parse", median(times.xmlParse), "ns/message");
    printFigure("codec.receive-to-pugixml", median(times.ratio), "ratio", 1.5);
    printFigure("codec.build", median(times.build), "ns/message");
    printFigure("codec.build-throughput", bytesPerMessage / median(times.build) * 1000, "MB/s");
    printFigure("codec.pugixml-build", median(times.xmlBuild), "ns/message");
    printFigure("codec.build-to-pugixml", median(times.buildRatio), "ratio", 1.5);
    return 0;
}
