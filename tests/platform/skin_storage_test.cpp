#include "platform/skin_files.h"
#include "platform/skin_storage.h"
#include "platform/skin_toml.h"
#include "platform/skin_values.h"
#include "support/files.h"
#include "support/pictures.h"
#include "support/text.h"

#include <QDir>
#include <QTemporaryDir>

#include <sys/stat.h>

namespace {

QByteArray picture(int width, int height, const char *format = "png")
{
    return encoded(plain({width, height}, 0xFFFF0000), format);
}

QByteArray archiveOf(const QByteArray &toml, std::vector<SkinContent> more = {})
{
    more.push_back({u"skin.toml"_s, toml});
    return skinArchive(more);
}

/// The archive after a change to the central header of the entry.
QByteArray withHeader(QByteArray archive, const QByteArray &entry, qsizetype offset, const QByteArray &bytes)
{
    constexpr qsizetype headerSize = 46;
    const qsizetype header = archive.lastIndexOf(entry) - headerSize;
    EXPECT_EQ(archive.mid(header, 4), "PK\1\2");
    return archive.replace(header + offset, bytes.size(), bytes);
}

QByteArray renamed(QByteArray archive, const QByteArray &from, const QByteArray &to)
{
    EXPECT_EQ(from.size(), to.size());
    return archive.replace(from, to);
}

/// What the error says; empty when there is none.
template <typename Action>
QString errorOf(Action action)
{
    try {
        action();
    } catch (const SkinError &error) {
        return error.reason();
    }
    return {};
}

struct SkinStorageTest : testing::Test
{
    void open(const QByteArray &toml, std::vector<SkinContent> more = {})
    {
        storage.openBytes(archiveOf(toml, std::move(more)), u"a.skn"_s);
        storage.SetSection(u"S"_s);
    }
    SkinValue get(const QString &key, SkinType type) { return storage.GetValue(key, type); }
    template <typename Kind>
    Kind get(const QString &key, SkinType type)
    {
        const SkinValue value = get(key, type);
        const Kind *kind = std::get_if<Kind>(&value);
        EXPECT_NE(kind, nullptr) << key.toStdString() << storage.notes().join(u'\n').toStdString();
        return kind == nullptr ? Kind() : *kind;
    }
    QString errorOfOpening(const QByteArray &archive)
    {
        return errorOf([&] { storage.openBytes(archive, u"a.skn"_s); });
    }
    QString errorOfPicture(const QString &key)
    {
        return errorOf([&] { (void)get(key, SkinType::Object); });
    }

    SkinStorage storage;
};

TEST_F(SkinStorageTest, ColoursAndTextsAreReadAndOthersNoted)
{
    open("top = 'x'\n[S]\n'a b'='#10aF30'\nb=0x30AF10\nc='none'\nd=2\ne=2.5\nf='2'\ng=true\nh='#12345'\n"
         "i=-1\nj=0x1000000\nk='#+12345'\nl=[1]\nm=2.0\n[T]\n'a b'='#000000'\n");
    const std::pair<QString, ColourValue> colours[] = {
        {u"a b"_s, 0x30AF10}, {u"b"_s, 0x30AF10}, {u"c"_s, 0xEFFFFFFF}};
    for (const auto &[key, colour] : colours) {
        EXPECT_EQ(get<ColourValue>(key, SkinType::Colour), colour) << key.toStdString();
    }
    const std::pair<QString, QString> texts[] = {
        {u"d"_s, u"2"_s}, {u"e"_s, u"2.5"_s}, {u"f"_s, u"2"_s}, {u"m"_s, u"2"_s}};
    for (const auto &[key, text] : texts) {
        EXPECT_EQ(get<QString>(key, SkinType::Text), text);
    }
    EXPECT_EQ(get(u"A b"_s, SkinType::Colour).index(), 0U) << "keys are spelled exactly";
    EXPECT_EQ(storage.notes(), QStringList());
    for (const QString &key : {u"h"_s, u"i"_s, u"j"_s, u"k"_s, u"l"_s, u"e"_s, u"g"_s}) {
        EXPECT_EQ(get(key, SkinType::Colour).index(), 0U) << key.toStdString();
        EXPECT_TRUE(storage.notes().constLast().startsWith(u"a.skn: S, "_s + key + u": "));
    }
    EXPECT_EQ(get(u"g"_s, SkinType::Text).index(), 0U);
    EXPECT_EQ(storage.notes().size(), 8);

    storage.SetSection(u"none"_s);
    EXPECT_EQ(get(u"b"_s, SkinType::Colour).index(), 0U);
    storage.SetSection(QString());
    EXPECT_EQ(get<QString>(u"top"_s, SkinType::Text), u"x"_s);
    storage.CloseFile();
    EXPECT_EQ(get(u"top"_s, SkinType::Text).index(), 0U);
}

TEST_F(SkinStorageTest, Fonts)
{
    open("[S]\na={face='Ann',size=9.5,italic=true,strikethrough=true}\nb={face='Ann'}\nc={size=9}\n"
         "d={face='Ann',size=0.5}\ne={face='Ann',size=nan}\nf={face='Ann',size=9,bold='yes'}\n"
         "g={face='Ann',size=1e300}\nh={face=' ',size=9}\ni=9\n[S.j]\nface='Ann'\nsize=9\nbold=true\n");
    const auto font = get<QFont>(u"a"_s, SkinType::Object);
    EXPECT_EQ(font.family(), u"Ann"_s);
    EXPECT_EQ(font.pointSizeF(), 9.5);
    EXPECT_TRUE(font.italic() && font.strikeOut() && !font.bold() && !font.underline());
    EXPECT_TRUE(get<QFont>(u"j"_s, SkinType::Object).bold());
    for (const QString &key : {u"b"_s, u"c"_s, u"d"_s, u"e"_s, u"f"_s, u"g"_s, u"h"_s, u"i"_s}) {
        EXPECT_EQ(get(key, SkinType::Object).index(), 0U) << key.toStdString();
    }
    EXPECT_EQ(storage.notes().size(), 8);
}

TEST_F(SkinStorageTest, PicturesComeWithTheirFineOnes)
{
    open("[S]\na='p/a.png'\nb='p\\b.bmp'\nc='c.png'\nd='d.png'\nnone='e.png'\nbad='bad.png'\ngif='g.png'\n"
         "lies='l.png'\n",
         {{u"p/a.png"_s, picture(3, 2)},
          {u"p/a@2x.png"_s, picture(6, 4)},
          {u"p/b.bmp"_s, picture(3, 2, "bmp")},
          {u"c.png"_s, picture(3, 2)},
          {u"c@2x.png"_s, picture(6, 5)},
          {u"d.png"_s, picture(3, 2)},
          {u"d@2x.png"_s, picture(6, 4).chopped(30)},
          {u"bad.png"_s, picture(3, 2).left(20)},
          {u"g.png"_s, "GIF89a"},
          {u"l.png"_s, promisedPicture(4000, 4000)}});
    const auto both = get<SkinPicture>(u"a"_s, SkinType::Object);
    EXPECT_EQ(both.image.pixelColor(2, 1), QColor(Qt::red));
    EXPECT_EQ(both.image2x.size(), QSize(6, 4));
    EXPECT_EQ(get<SkinPicture>(u"b"_s, SkinType::Object).image.format(), QImage::Format_ARGB32_Premultiplied);
    EXPECT_EQ(both.image2x.format(), QImage::Format_ARGB32_Premultiplied);
    EXPECT_EQ(storage.notes(), QStringList());
    for (const QString &key : {u"c"_s, u"d"_s}) {
        const auto alone = get<SkinPicture>(key, SkinType::Object);
        EXPECT_EQ(alone.image.size(), QSize(3, 2));
        EXPECT_TRUE(alone.image2x.isNull());
        EXPECT_TRUE(storage.notes().constLast().contains(key + u"@2x.png")) << key.toStdString();
    }
    EXPECT_EQ(storage.notes().size(), 2);
    for (const QString &key : {u"none"_s, u"bad"_s, u"gif"_s, u"lies"_s}) {
        EXPECT_EQ(get(key, SkinType::Object).index(), 0U) << key.toStdString();
    }
    EXPECT_EQ(storage.notes().size(), 6);
}

TEST_F(SkinStorageTest, PicturesThatWouldTakeTooMuchAreRefused)
{
    std::vector<SkinContent> many;
    QByteArray toml = "[S]\nwide='w.png'\nout='../a.png'\n";
    for (int i = 0; i < 5; ++i) {
        many.push_back({QString::number(i) + u".bmp", promisedPicture(4096, 4096)});
        toml += "k" + QByteArray::number(i) + "='" + QByteArray::number(i) + ".bmp'\n";
    }
    many.push_back({u"w.png"_s, picture(4097, 1)});
    for (const auto &[key, reason] :
         {std::pair{u"wide"_s, u"a.skn: w.png: larger than"_s}, {u"out"_s, u"leads out"_s}}) {
        open(toml, many);
        EXPECT_TRUE(errorOfPicture(key).contains(reason));
        EXPECT_TRUE(storage.tables().sections.isEmpty()) << "closed by the error";
    }
    open(toml, many);
    for (int i = 0; i < 8; ++i) {
        (void)get(u"k"_s + QString::number(i % 4), SkinType::Object);
    }
    EXPECT_TRUE(errorOfPicture(u"k4"_s).contains(u"4.bmp: "_s)) << "in all";
}

TEST_F(SkinStorageTest, ArchivesThatNoSkinMayBeAreRefused)
{
    const QByteArray good =
        archiveOf("[S]\na=1\n", {{u"aa/bb.png"_s, QByteArray(100, 'x')}, {u"aa/cc.png"_s, {}}});
    ASSERT_EQ(errorOfOpening(good), QString());
    const QByteArray entry = "aa/bb.png";
    std::vector<SkinContent> many(SkinLimits::entries, SkinContent{});
    for (std::size_t i = 0; i < many.size(); ++i) {
        many[i].path = QString::number(i);
    }
    const QByteArray full = skinArchive(many);
    const std::pair<QString, QByteArray> cases[] = {
        {u"a.skn: no skin archive"_s, "hello"},
        {u"a.skn: no skin archive"_s, good.chopped(30)},
        {u"a.skn: there is no skin.toml"_s, renamed(good, "skin.toml", "skin.tomb")},
        {u"../bb.png: the name leads out"_s, renamed(good, entry, "../bb.png")},
        {u"leads out"_s, renamed(good, entry, "..\\bb.png")},
        {u"absolute"_s, renamed(good, entry, "/a/bb.png")},
        {u"absolute"_s, renamed(good, entry, "\\a\\bb.png")},
        {u"absolute"_s, renamed(good, entry, "C:\\bb.png")},
        {u"control characters"_s, renamed(good, entry, "aa/b\n.png")},
        {u"not UTF-8"_s, renamed(good, entry, "aa/b\xFF.png")},
        {u"twice"_s, renamed(good, entry, "aa/cc.png")},
        {u"twice"_s, renamed(good, entry, "AA/Cc.png")},
        {u"twice"_s, renamed(good, entry, "aa\\cc.png")},
        {u"a link"_s, withHeader(good, entry, 38, QByteArray("\0\0\xFF\xA1", 4))},
        {u"encrypted"_s, withHeader(good, entry, 8, "\1")},
        {u"packed in a way"_s, withHeader(good, entry, 10, QByteArray("\x0E\0", 2))},
        {u"64 MiB unpacked"_s, withHeader(good, entry, 24, QByteArray("\0\0\0\x04", 4))},
        {u"there is no skin.toml"_s, full},
        {u"4096 entries"_s, archiveOf({}) + full},
        {u"no skin archive"_s, full.chopped(8) + "\xFF\xFF\xFF\xFF" + full.right(4)},
    };
    for (const auto &[why, archive] : cases) {
        storage.openBytes(good, u"b.skn"_s);
        const QString reason = errorOfOpening(archive);
        EXPECT_TRUE(reason.contains(why)) << why.toStdString() << " <- " << reason.toStdString();
        EXPECT_TRUE(storage.tables().sections.isEmpty()) << why.toStdString();
    }
    EXPECT_EQ(errorOfOpening(renamed(good, entry, "Thumbs.db")), QString());
}

TEST_F(SkinStorageTest, EntriesThatLieAreRefusedWhenTheyAreRead)
{
    const auto errorOfReading = [&](const QByteArray &archive) {
        storage.openBytes(archive, u"a.skn"_s);
        storage.SetSection(u"S"_s);
        return errorOfPicture(u"a"_s);
    };
    const QByteArray content(100, 'x');
    for (const QByteArray &name :
         {QByteArray("aa/b.png"), QByteArray("aa/b.bmp")}) { // one of them is deflated
        const QString path = QString::fromUtf8(name);
        const QByteArray good = archiveOf("[S]\na='" + name + "'\n", {{path, content}});
        ASSERT_EQ(errorOfReading(good), QString());
        for (const char size : {'\0', '\1', '\x63', '\x65'}) {
            const QString reason = errorOfReading(withHeader(good, name, 24, QByteArray(1, size)));
            EXPECT_TRUE(reason.startsWith(u"a.skn: "_s + path + u": ")) << int(size) << reason.toStdString();
        }
        if (QByteArray damaged = good; damaged.contains(content)) {
            damaged[good.indexOf(content)] = 'y';
            EXPECT_TRUE(errorOfReading(damaged).contains(path + u": damaged"));
        }
    }
}

TEST_F(SkinStorageTest, TablesThatCannotBeReadSayWhere)
{
    const std::pair<QByteArray, QString> cases[] = {
        {"[S]\na = 1\na = 2\n", u"a.skn: skin.toml:3:"_s},
        {"[S]\na = #ffffff\n", u"skin.toml:2:"_s},
        {"a = '\xFF'\n", u"skin.toml:1:"_s},
        {"a = -\xD0\xA0\n", u"skin.toml:1:"_s},
        {"\n" + QByteArray("a.").repeated(300'000) + "a=1\n", u"skin.toml:2:1: more than 64 dots"_s},
        {"a=" + QByteArray("[").repeated(100'000), u"skin.toml:1:"_s},
        {"a=" + QByteArray("{a=").repeated(100'000), u"skin.toml:1:"_s},
        {QByteArray("#").repeated(SkinLimits::tomlBytes + 1), u"skin.toml: larger than"_s},
    };
    for (const auto &[toml, why] : cases) {
        const QString reason = errorOfOpening(archiveOf(toml));
        EXPECT_TRUE(reason.contains(why)) << why.toStdString() << " <- " << reason.toStdString();
    }
    const SkinTables tables = readSkinToml("\xEF\xBB\xBF[S]\nx = '''\n......'''\n  y = {a=1}\n", u"f"_s);
    const SkinTomlValue y = tables.sections[u"S"_s][u"y"_s];
    EXPECT_EQ(std::tuple(y.line, y.column, kindOf(y)), std::tuple(4, 7, u"table"_s));
}

TEST_F(SkinStorageTest, AFolderIsReadLikeAnArchiveAndNotBeyond)
{
    const QTemporaryDir place;
    const QDir skin(place.filePath(u"skin"_s));
    ASSERT_TRUE(skin.mkpath(u"p"_s));
    writeFile(skin.filePath(u"skin.toml"_s),
              "[S]\na='p/a.png'\nin='in.png'\nout='out.png'\nup='../a.png'\npipe='pipe'\n");
    writeFile(skin.filePath(u"p/a.png"_s), picture(1, 1));
    writeFile(place.filePath(u"a.png"_s), picture(1, 1));
    ASSERT_TRUE(QFile::link(skin.filePath(u"p/a.png"_s), skin.filePath(u"in.png"_s)));
    for (const QString &path : {skin.path(), skin.filePath(u"skin.toml"_s)}) {
        storage.OpenFile(path);
        storage.SetSection(u"S"_s);
        EXPECT_EQ(get<SkinPicture>(u"in"_s, SkinType::Object).image.size(), QSize(1, 1));
    }
    EXPECT_EQ(SkinFiles(skin.path()).entries().size(), 3U);

    ASSERT_TRUE(QFile::link(place.filePath(u"a.png"_s), skin.filePath(u"out.png"_s)));
    ASSERT_EQ(mkfifo(skin.filePath(u"pipe"_s).toLocal8Bit().constData(), 0600), 0);
    for (const QString &key : {u"out"_s, u"up"_s, u"pipe"_s}) {
        storage.OpenFile(skin.path());
        storage.SetSection(u"S"_s);
        EXPECT_NE(errorOfPicture(key), QString()) << key.toStdString();
    }
    EXPECT_NE(errorOf([&] { (void)SkinFiles(skin.path()).entries(); }), QString());

    writeFile(place.filePath(u"empty.skn"_s), {});
    writeFile(place.filePath(u"large.skn"_s), {});
    ASSERT_TRUE(QFile::resize(place.filePath(u"large.skn"_s), SkinLimits::bytes + 1));
    for (const QString &path : {place.path(), place.filePath(u"none"_s), place.filePath(u"empty.skn"_s),
                                place.filePath(u"large.skn"_s), skin.filePath(u"pipe"_s), QString()}) {
        EXPECT_TRUE(errorOf([&] { storage.OpenFile(path); }).startsWith(path + u": ")) << path.toStdString();
    }
}

TEST_F(SkinStorageTest, TheSameFilesMakeTheSameArchive)
{
    const QTemporaryDir place;
    const QString path = place.filePath(u"a.skn"_s);
    const SkinContent toml{u"skin.toml"_s, QByteArray("[S]\na=1\n").repeated(50)};
    const SkinContent image{u"p/\u00E9.png"_s, picture(2, 2)};
    writeSkinArchive({toml, image}, path);
    EXPECT_EQ(contentOf(path), skinArchive({image, toml}));
    SkinFiles files(path);
    EXPECT_EQ(files.read(image.path), image.bytes);
    EXPECT_EQ(files.read(toml.path), toml.bytes);
    for (const QString &name : {u"../a"_s, u"P/\u00C9.png"_s}) {
        EXPECT_NE(errorOf([&] { writeSkinArchive({image, {name, {}}}, path); }), QString());
    }
    EXPECT_EQ(SkinFiles(path).entries().size(), 2U) << "a failure leaves the old one";
}

} // namespace
