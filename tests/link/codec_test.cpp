#include "link/xml_codec.h"
#include "support/text.h"

#include <algorithm>
#include <random>

namespace {

struct Parsed
{
    explicit Parsed(const QString &message) : text(message) { ok = ParseElement(text, tree.root, position); }

    QString text;
    XMLDocument tree;
    qsizetype position = 1;
    bool ok = false;
};

TEST(Codec, WhatParsesAndWhereItEnds)
{
    constexpr qsizetype anywhere = -1; // of no use to anybody
    const std::tuple<QString, bool, qsizetype, QString> cases[] = {
        {u"<GETSKIN/>"_s, true, 10, u"<GETSKIN/>"_s},
        {u"<A></B>rest"_s, true, 7, u"<A/>"_s},
        {u"<A/ anything>rest"_s, true, 13, u"<A/>"_s},
        {u"<A>text"_s, true, 7, u"<A>text</A>"_s},
        {u"<A><B>"_s, true, 6, u"<A><B/></A>"_s},
        {u"<A>one<B/>two</A>"_s, true, 17, u"<A><B/>two</A>"_s},
        {u"<A>one<B/></A>"_s, true, 14, u"<A><B/>one</A>"_s},
        {u"<A cnode=\"x\">text</A>"_s, true, 21, u"<A>text</A>"_s},
        {u"<A x=\"1\"  y=\"2\"/>"_s, true, 17, u"<A x=\"1\"  y=\"2\"/>"_s},
        {u"<A x=\"a\\\"b\\\\\"/>"_s, true, 15, u"<A x=\"a\\\"b\\\\\"/>"_s},
        {u"<A =\"lost\"/>"_s, true, 12, u"<A/>"_s},
        {u"<A>\\<B/\\></A>"_s, true, 13, u"<A>\\<B\\/\\></A>"_s},
        {u"<A>x\\"_s, true, 5, u"<A>x</A>"_s},
        {u"A"_s, false, 2, {}},
        {u""_s, false, anywhere, {}},
        {u"<>"_s, false, anywhere, {}},
        {u"<A"_s, false, anywhere, {}},
        {u"<A/"_s, false, 0, {}},
        {u"<A></A"_s, false, 0, {}},
        {u"<A x=1/>"_s, false, anywhere, {}},
        {u"<A x=\"1/>"_s, false, anywhere, {}},
        {u"<A x=\"1\""_s, false, anywhere, {}},
        {u"<A x=\"1\"y=\"2\"/>"_s, false, anywhere, {}},
        {u"<A x=\"1\" x=\"2\"/>"_s, false, anywhere, {}},
        {u"<A><"_s, false, anywhere, {}},
        {u"<A><B x></A>"_s, false, anywhere, {}},
    };
    for (const auto &[text, ok, position, rebuilt] : cases) {
        const Parsed parsed(text);
        EXPECT_EQ(parsed.ok, ok) << text.toStdString();
        EXPECT_TRUE(position == anywhere || parsed.position == position) << text.toStdString();
        EXPECT_TRUE(!ok || BuildXML(parsed.tree.root) == rebuilt) << text.toStdString();
    }
}

TEST(Codec, CollectionsKeepOrderAndRefuseASecondKey)
{
    XMLDocument tree;
    tree.root.MsgName = u"A";
    colXMLParts &parts = tree.root.XMLParts;
    EXPECT_TRUE(parts.Add(u"a", u"1") != nullptr && parts.Add(u"", u"2", u"k") != nullptr);
    EXPECT_NE(parts.Add(u"", u"lost"), nullptr) << "made, but nowhere to be found";
    EXPECT_EQ(parts.Add(u"a", u"3"), nullptr);
    EXPECT_TRUE(parts.Count() == 2 && parts.Item(u"k")->PartValue == u"2");
    EXPECT_TRUE(parts.Remove(u"k") && !parts.Remove(u"k"));
    EXPECT_NE(parts.Add(u"z", u""), nullptr);
    EXPECT_TRUE(parts.Item(2)->PartName == u"z" && parts.Item(3) == nullptr);
    EXPECT_TRUE(tree.root.value(u"z") == u"" && !tree.root.value(u"Z"));

    colXMLMessage &children = tree.root.XMLMessage;
    children.Add(u"B", u"key").XMLParts.Add(u"cnode", u"text");
    children.Add(u"C");
    EXPECT_EQ(children.Item(u"key"), children.Item(1));
    EXPECT_TRUE(children.Item(u"") == nullptr && children.Item(3) == nullptr);
    EXPECT_TRUE(children.Remove(2));
    children.Add(u"D");
    EXPECT_EQ(BuildXML(tree.root), u"<A a=\"1\" z=\"\"><B>text</B><D/></A>"_s);
}

TEST(Codec, NestingHasALimit)
{
    const auto nested = [](int depth) {
        return Parsed(u"<A>"_s.repeated(depth) + u"</A>"_s.repeated(depth)).ok;
    };
    EXPECT_TRUE(nested(maximumDepth));
    EXPECT_FALSE(nested(maximumDepth + 1));
    EXPECT_FALSE(nested(500'000));
}

TEST(Codec, AMillionOfAnything)
{
    QString attributes = u"<A"_s;
    for (int at = 0; at < 300'000; ++at) {
        attributes += u' ' + QString::number(at, 36) + u"=\"\"";
    }
    EXPECT_EQ(Parsed(QString(attributes + u"/>")).tree.root.XMLParts.Count(), 300'000);
    EXPECT_FALSE(Parsed(QString(attributes + u" 5=\"again\"/>")).ok);
    EXPECT_EQ(Parsed(QString(attributes + u'>' + u"x<b/>"_s.repeated(300'000))).tree.root.XMLMessage.Count(),
              300'000);
    EXPECT_EQ(Parsed(u"<A>" + u"<b/>"_s.repeated(1'000'000)).tree.root.XMLMessage.Count(), 1'000'000);
}

/// Fills the element with a random tree whose texts are full of what needs escaping.
void fill(clsXMLMessage &element, int depth, std::mt19937 &random)
{
    const auto upTo = [&](int most) { return std::uniform_int_distribution(0, most)(random); };
    const auto text = [&](int length) {
        const QStringView alphabet = u"ab \\/>=\"<\u0001\u0003\u00E9\u4F60";
        QString made(length, u'\0');
        std::ranges::generate(made, [&] { return alphabet[upTo(static_cast<int>(alphabet.size()) - 1)]; });
        return made;
    };
    for (int at = upTo(3); at > 0; --at) {
        element.XMLParts.Add(u"p%1"_s.arg(at), text(upTo(8)));
    }
    for (int at = depth < 5 ? upTo(3) : 0; at > 0; --at) {
        fill(element.XMLMessage.Add(u"n%1"_s.arg(upTo(9))), depth + 1, random);
    }
    if (upTo(1) == 1) {
        element.XMLParts.Add(u"cnode", text(1 + upTo(8)));
    }
}

TEST(Codec, RandomTreesSurviveTheWire)
{
    for (unsigned seed = 0; seed < 300; ++seed) {
        XMLDocument tree;
        tree.root.MsgName = u"ROOT";
        std::mt19937 random(seed);
        fill(tree.root, 0, random);
        const QString text = BuildXML(tree.root);
        const Parsed parsed(text);
        ASSERT_TRUE(parsed.ok) << text.toStdString();
        ASSERT_EQ(BuildXML(parsed.tree.root), text);
        ASSERT_EQ(parsed.position, text.size());
        for (qsizetype cut = 0; seed % 10 == 0 && cut < text.size(); ++cut) {
            const Parsed beginning(text.first(cut)); // neither crashes nor reads beyond the cut
            const Parsed rest(text.sliced(cut + 1));
            ASSERT_TRUE(!beginning.ok || text.startsWith(u"<ROOT"_s));
            ASSERT_TRUE(!rest.ok || rest.text.startsWith(u'<'));
        }
    }
}

} // namespace
