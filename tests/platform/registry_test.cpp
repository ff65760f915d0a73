#include "platform/clsRegistry.h"
#include "platform/text_file.h"
#include "support/text.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

constexpr QStringView stored = uR"(Windows Registry Editor Version 5.00

[HKEY_LOCAL_MACHINE\Software\Example]
"Start Page"="the machine's"

[HKEY_CURRENT_USER\Software\Example]
; a comment
@="no name"
"Start Page"="http://example.org/?a=\"b\"\\c"
"number"=dword:0000002a
"big"=hex(5):00,00,01,\
  02
"little"=hex(4):02,01,00,00
"short"=hex(4):02,01
"expand"=hex(2):25,00,50,00,59,00,4c,00,4f,00,58,00,5f,00,54,00,25,00,2f,00,25,00,3f,00,25,00,00,00
"several"=hex(7):61,00,00,00,62,00,00,00,00,00
"bytes"=hex:01,ff
"broken"="no end
"broken"=dword:zz
"odd"=hex:1ff
)";

TEST(Registry, GivesAValueByItsTypeOrTheDefault)
{
    qputenv("PYLOX_T", "found");
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"Registry.reg"_s);
    ASSERT_TRUE(writeTextFile(file, stored.toString()));

    const QVariant none = u"default"_s;
    const std::tuple<QString, RegistryType, QVariant> cases[] = {
        {u"Start Page"_s, RegistryType::String, u"http://example.org/?a=\"b\"\\c"_s},
        {u"start page"_s, RegistryType::String, u"http://example.org/?a=\"b\"\\c"_s},
        {u"number"_s, RegistryType::Number, 42U},
        {u"big"_s, RegistryType::BigEndianNumber, 258U},
        {u"little"_s, RegistryType::Number, 258U},
        {u"expand"_s, RegistryType::ExpandableString, u"found/%?%"_s},
        {u"several"_s, RegistryType::MultiString, QString(u"a\0b\0"_s)},
        {u"bytes"_s, RegistryType::Binary, QByteArray("\x01\xff")},
        {u"short"_s, RegistryType::None, none},
        {u"broken"_s, RegistryType::None, none},
        {u"odd"_s, RegistryType::None, none},
        {u"absent"_s, RegistryType::None, none},
    };
    for (const auto &[name, type, value] : cases) {
        clsRegistry registry(file);
        registry.SectionKey = u"software\\example"_s;
        registry.ValueKey = name;
        registry.Default = none;
        EXPECT_EQ(registry.Value(), value) << name.toStdString();
        EXPECT_EQ(registry.ValueType, type) << name.toStdString();
    }
}

} // namespace
