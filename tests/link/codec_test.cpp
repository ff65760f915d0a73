#include "link/xml_codec.h"
#include "support/text.h"

#include <gtest/gtest.h>
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
    const struct
    {
        QString text;
        bool ok;
        std::optional<qsizetype> position; ///< none: of no use to anybody
        QString rebuilt;
    } cases[] = {
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
        {u""_s, false, std::nullopt, {}},
        {u"<>"_s, false, std::nullopt, {}},
        {u"<A"_s, false, std::nullopt, {}},
        {u"<A/"_s, false, 0, {}},
        {u"<A></A"_s, false, 0, {}},
        {u"<A x=1/>"_s, false, std::nullopt, {}},
        {u"<A x=\"1/>"_s, false, std::nullopt, {}},
        {u"<A x=\"1\""_s, false, std::nullopt, {}},
        {u"<A x=\"1\"y=\"2\"/>"_s, false, std::nullopt, {}},
        {u"<A x=\"1\" x=\"2\"/>"_s, false, std::nullopt, {}},
        {u"<A><"_s, false, std::nullopt, {}},
        {u"<A><B x></A>"_s, false, std::nullopt, {}},
    };
    for (const auto &c : cases) {
        const Parsed parsed(c.text);
        EXPECT_EQ(parsed.ok, c.ok) << c.text.toStdString();
        if (c.position) {
            EXPECT_EQ(parsed.position, *c.position) << c.text.toStdString();
        }
        if (c.ok) {
            EXPECT_EQ(BuildXML(parsed.tree.root), c.rebuilt);
        }
    }
}

TEST(Codec, ParsingStartsAndEndsWithinALongerText)
{
    const QString text = u"..<A>x</A><B/>"_s;
    XMLDocument a;
    qsizetype position = 3;
    ASSERT_TRUE(ParseElement(text, a.root, position));
    EXPECT_EQ(position, 10);
    XMLDocument b;
    ASSERT_TRUE(ParseElement(text, b.root, ++position));
    EXPECT_EQ(b.root.MsgName, u"B");
}

TEST(Codec, AttributesAreReadByName)
{
    const Parsed parsed(u"<MSG><V mk=\"C7\"/><SKIN value=\"C:\\\\skins\\\\Blue.skn\" b=\"\"/></MSG>"_s);
    ASSERT_TRUE(parsed.ok);
    const clsXMLMessage *skin = parsed.tree.root.XMLMessage.Item(2);
    ASSERT_NE(skin, nullptr);
    EXPECT_EQ(skin->value(u"value"), u"C:\\skins\\Blue.skn");
    EXPECT_EQ(skin->value(u"b"), u"");
    EXPECT_FALSE(skin->value(u"B"));
    EXPECT_EQ(skin->XMLParts.Item(2)->PartName, u"b");
    EXPECT_EQ(skin->XMLParts.Item(3), nullptr);
    EXPECT_EQ(parsed.tree.root.XMLMessage.Item(3), nullptr);
}

TEST(Codec, CollectionsKeepOrderAndRefuseASecondKey)
{
    XMLDocument tree;
    colXMLParts &parts = tree.root.XMLParts;
    EXPECT_NE(parts.Add(u"a", u"1"), nullptr);
    EXPECT_NE(parts.Add(u"", u"2", u"k"), nullptr);
    EXPECT_NE(parts.Add(u"", u"lost"), nullptr) << "made, but nowhere to be found";
    EXPECT_EQ(parts.Add(u"a", u"3"), nullptr);
    EXPECT_EQ(parts.Count(), 2);
    EXPECT_EQ(parts.Item(u"k")->PartValue, u"2");
    EXPECT_TRUE(parts.Remove(u"k"));
    EXPECT_FALSE(parts.Remove(u"k"));
    EXPECT_NE(parts.Add(u"z", u"4"), nullptr);
    EXPECT_EQ(parts.Item(2)->PartName, u"z");

    colXMLMessage &children = tree.root.XMLMessage;
    children.Add(u"B", u"key").XMLParts.Add(u"cnode", u"text");
    children.Add(u"C");
    EXPECT_EQ(children.Item(u"key"), children.Item(1));
    EXPECT_EQ(children.Item(u""), nullptr);
    EXPECT_TRUE(children.Remove(2));
    children.Add(u"D");
    tree.root.MsgName = u"A";
    EXPECT_EQ(BuildXML(tree.root), u"<A a=\"1\" z=\"4\"><B>text</B><D/></A>"_s);
}

TEST(Codec, EscapesComeBack)
{
    EXPECT_EQ(EscapeXML(u"a\\b/c"), u"a\\\\b\\/c"_s);
    EXPECT_EQ(UnescapeXML(u"a\\\\b\\/c"), u"a\\b/c"_s);
    EXPECT_EQ(UnescapeXML(u"end\\"), u"end"_s);
    const QString all = u"\\/>=\"<\u0001 \\\\\"\u4F60"_s;
    EXPECT_EQ(UnescapeXML(EscapeXML(all)), all);
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

/// Random trees whose texts are full of what needs escaping.
class RandomTree
{
public:
    explicit RandomTree(unsigned seed) : m_random(seed) {}

    void fill(clsXMLMessage &element, int depth)
    {
        const int parts = upTo(3);
        for (int at = 0; at < parts; ++at) {
            element.XMLParts.Add(QString(u'p' + QString::number(at)), text(upTo(8)));
        }
        const int children = depth < 5 ? upTo(3) : 0;
        for (int at = 0; at < children; ++at) {
            fill(element.XMLMessage.Add(QString(u"n" + QString::number(upTo(9)))), depth + 1);
        }
        if (upTo(1) == 1) {
            element.XMLParts.Add(u"cnode", text(1 + upTo(8)));
        }
    }

private:
    int upTo(int most) { return std::uniform_int_distribution(0, most)(m_random); }

    QString text(int length)
    {
        const QString alphabet = u"ab \\/>=\"<\u0001\u0003\u00E9\u4F60"_s;
        QString made;
        while (made.size() < length) {
            made += alphabet[upTo(static_cast<int>(alphabet.size()) - 1)];
        }
        return made;
    }

    std::mt19937 m_random;
};

TEST(Codec, RandomTreesSurviveTheWire)
{
    for (unsigned seed = 0; seed < 300; ++seed) {
        XMLDocument tree;
        tree.root.MsgName = u"ROOT";
        RandomTree(seed).fill(tree.root, 0);
        const QString text = BuildXML(tree.root);
        const Parsed parsed(text);
        ASSERT_TRUE(parsed.ok) << text.toStdString();
        ASSERT_EQ(BuildXML(parsed.tree.root), text);
        ASSERT_EQ(parsed.position, text.size());
        if (seed % 10 == 0) {
            for (qsizetype cut = 0; cut < text.size(); ++cut) {
                const Parsed beginning(text.first(cut)); // neither crashes nor reads beyond the cut
                const Parsed rest(text.sliced(cut + 1));
                ASSERT_TRUE(!beginning.ok || text.startsWith(u"<ROOT"_s));
                ASSERT_TRUE(!rest.ok || rest.text.startsWith(u'<'));
            }
        }
    }
}

} // namespace
