#include "platform/skin_files.h"
#include "platform/skin_storage.h"
#include "platform/skin_toml.h"
#include "support/files.h"
#include "support/pictures.h"
#include "support/text.h"

#include <QDir>
#include <QTemporaryDir>

#include <functional>
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

/// What the error says; empty when there is none.
QString errorOf(const std::function<void()> &action)
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
    template <typename Kind>
    Kind get(const QString &key, SkinType type = SkinType::Object)
    {
        const SkinValue value = storage.GetValue(key, type);
        const Kind *kind = std::get_if<Kind>(&value);
        EXPECT_NE(kind, nullptr) << key.toStdString() << storage.notes().join(u'\n').toStdString();
        return kind == nullptr ? Kind() : *kind;
    }
    /// Each of these keys, separated by spaces, gives nothing and is noted.
    void expectNoted(const QString &keys, SkinType type)
    {
        for (const QString &key : keys.split(u' ')) {
            (void)get<std::monostate>(key, type);
            const QString note = storage.notes().isEmpty() ? QString() : storage.notes().constLast();
            EXPECT_TRUE(note.startsWith(u"a.skn: S, "_s + key + u": ")) << key.toStdString();
        }
    }
    QString errorOfOpening(const QByteArray &archive)
    {
        return errorOf([&] { storage.openBytes(archive, u"a.skn"_s); });
    }
    QString errorOfPicture(const QString &key)
    {
        return errorOf([&] { (void)storage.GetValue(key, SkinType::Object); });
    }

    SkinStorage storage;
};

TEST_F(SkinStorageTest, ColoursAndTextsAreReadAndOthersNoted)
{
    open("top = 'x'\n[S]\n'a b'='#10aF30'\nb=0x30AF10\nc='none'\nd=2\ne=2.5\nf='2'\ng=true\nh='#12345'\n"
         "i=-1\nj=0x1000000\nk='#+12345'\nl=[1]\nm=2.0\n[T]\n'a b'='#000000'\n");
    for (const auto &[key, colour] :
         {std::pair(u"a b"_s, 0x30AF10U), {u"b"_s, 0x30AF10U}, {u"c"_s, 0xEFFFFFFFU}}) {
        EXPECT_EQ(get<ColourValue>(key, SkinType::Colour), colour) << key.toStdString();
    }
    for (const auto &[key, text] :
         {std::pair(u"d"_s, u"2"_s), {u"e"_s, u"2.5"_s}, {u"f"_s, u"2"_s}, {u"m"_s, u"2"_s}}) {
        EXPECT_EQ(get<QString>(key, SkinType::Text), text) << key.toStdString();
    }
    (void)get<std::monostate>(u"A b"_s, SkinType::Colour); // keys are spelled exactly
    EXPECT_EQ(storage.notes(), QStringList());
    expectNoted(u"h i j k l e g"_s, SkinType::Colour);
    expectNoted(u"g"_s, SkinType::Text);
    storage.SetSection(u"none"_s);
    (void)get<std::monostate>(u"b"_s, SkinType::Colour);
    storage.SetSection(QString());
    EXPECT_EQ(get<QString>(u"top"_s, SkinType::Text), u"x"_s);
    storage.CloseFile();
    (void)get<std::monostate>(u"top"_s, SkinType::Text);
}

TEST_F(SkinStorageTest, Fonts)
{
    open("[S]\na={face='Ann',size=9.5,italic=true,strikethrough=true}\nb={face='Ann'}\nc={size=9}\n"
         "d={face='Ann',size=0.5}\ne={face='Ann',size=nan}\nf={face='Ann',size=9,bold='yes'}\n"
         "g={face='Ann',size=1e300}\nh={face=' ',size=9}\ni=9\n[S.j]\nface='Ann'\nsize=9\nbold=true\n");
    const auto font = get<QFont>(u"a"_s);
    EXPECT_TRUE(font.family() == u"Ann" && font.pointSizeF() == 9.5);
    EXPECT_TRUE(font.italic() && font.strikeOut() && !font.bold() && !font.underline());
    EXPECT_TRUE(get<QFont>(u"j"_s).bold());
    expectNoted(u"b c d e f g h i"_s, SkinType::Object);
}

TEST_F(SkinStorageTest, PicturesComeWithTheirFineOnes)
{
    open("[S]\na='p/a.png'\nb='p\\b.bmp'\nc='c.png'\nd='d.png'\nnone='e.png'\nlies='l.png'\n",
         {{u"p/a.png"_s, picture(3, 2)},
          {u"p/a@2x.png"_s, picture(6, 4)},
          {u"p/b.bmp"_s, picture(3, 2, "bmp")},
          {u"c.png"_s, picture(3, 2)},
          {u"c@2x.png"_s, picture(6, 5)},
          {u"d.png"_s, picture(3, 2)},
          {u"d@2x.png"_s, picture(6, 4).chopped(30)},
          {u"l.png"_s, promisedPicture(4000, 4000)}});
    const auto both = get<SkinPicture>(u"a"_s);
    EXPECT_EQ(both.image.pixelColor(2, 1), QColor(Qt::red));
    EXPECT_EQ(both.image2x.size(), QSize(6, 4));
    EXPECT_EQ(get<SkinPicture>(u"b"_s).image.format(), QImage::Format_ARGB32_Premultiplied);
    EXPECT_EQ(both.image2x.format(), QImage::Format_ARGB32_Premultiplied);
    EXPECT_EQ(storage.notes(), QStringList());
    for (const QString &key : {u"c"_s, u"d"_s}) {
        const auto alone = get<SkinPicture>(key);
        EXPECT_TRUE(alone.image.size() == QSize(3, 2) && alone.image2x.isNull()) << key.toStdString();
        EXPECT_TRUE(storage.notes().constLast().contains(key + u"@2x.png")) << key.toStdString();
    }
    expectNoted(u"none lies"_s, SkinType::Object);
}

TEST_F(SkinStorageTest, PicturesThatWouldTakeTooMuchAreRefused)
{
    std::vector<SkinContent> many{{u"w.png"_s, picture(4097, 1)}};
    QByteArray toml = "[S]\nwide='w.png'\nout='../a.png'\n";
    for (const QChar name : u"01234"_s) {
        many.push_back({name + u".bmp"_s, promisedPicture(4096, 4096)});
        toml += QString(name + u"='"_s + name + u".bmp'\n").toLatin1();
    }
    const std::pair<QString, QString> cases[] = {
        {u"wide"_s, u"a.skn: w.png: larger than"_s}, {u"out"_s, u"leads out"_s}, {u"4"_s, u"4.bmp: "_s}};
    for (const auto &[last, reason] : cases) {
        open(toml, many);
        for (const QChar name : u"01230123"_s) {
            EXPECT_EQ(errorOfPicture(name), QString()) << "each counts once";
        }
        EXPECT_TRUE(errorOfPicture(last).contains(reason)) << reason.toStdString();
        EXPECT_TRUE(storage.tables().sections.isEmpty()) << "closed by the error";
    }
}

TEST_F(SkinStorageTest, ArchivesThatNoSkinMayBeAreRefused)
{
    const QByteArray entry = "aa/bb.png";
    const QByteArray good =
        archiveOf("[S]\na=1\n", {{u"aa/bb.png"_s, QByteArray(100, 'x')}, {u"aa/cc.png"_s, {}}});
    const auto renamed = [&](const QByteArray &name) {
        EXPECT_EQ(name.size(), entry.size());
        return QByteArray(good).replace(entry, name);
    };
    std::vector<SkinContent> many(SkinLimits::entries, SkinContent{});
    for (std::size_t i = 0; i < many.size(); ++i) {
        many[i].path = QString::number(i);
    }
    const QByteArray full = skinArchive(many);
    const std::pair<QString, QByteArray> cases[] = {
        {u"a.skn: no skin archive"_s, "hello"},
        {u"a.skn: no skin archive"_s, good.chopped(30)},
        {u"a.skn: there is no skin.toml"_s, QByteArray(good).replace("skin.toml", "skin.tomb")},
        {u"../bb.png: the name leads out"_s, renamed("../bb.png")},
        {u"leads out"_s, renamed("..\\bb.png")},
        {u"absolute"_s, renamed("/a/bb.png")},
        {u"absolute"_s, renamed("\\a\\bb.png")},
        {u"absolute"_s, renamed("C:\\bb.png")},
        {u"control characters"_s, renamed("aa/b\n.png")},
        {u"not UTF-8"_s, renamed("aa/b\xFF.png")},
        {u"twice"_s, renamed("aa/cc.png")},
        {u"twice"_s, renamed("AA/Cc.png")},
        {u"twice"_s, renamed("aa\\cc.png")},
        {u"a link"_s, withHeader(good, entry, 38, QByteArray("\0\0\xFF\xA1", 4))},
        {u"encrypted"_s, withHeader(good, entry, 8, "\1")},
        {u"packed in a way"_s, withHeader(good, entry, 10, QByteArray("\x0E\0", 2))},
        {u"64 MiB unpacked"_s, withHeader(good, entry, 24, QByteArray("\0\0\0\x04", 4))},
        {u"there is no skin.toml"_s, full},
        {u"4096 entries"_s, archiveOf({}) + full},
        {u"no skin archive"_s, full.chopped(8) + "\xFF\xFF\xFF\xFF" + full.right(4)},
        {{}, renamed("Thumbs.db")},
    };
    for (const auto &[why, archive] : cases) {
        ASSERT_EQ(errorOfOpening(good), QString());
        const QString reason = errorOfOpening(archive);
        EXPECT_TRUE(reason.contains(why)) << why.toStdString() << " <- " << reason.toStdString();
        EXPECT_TRUE(reason.isEmpty() == why.isEmpty() &&
                    storage.tables().sections.isEmpty() != why.isEmpty());
    }
}

TEST_F(SkinStorageTest, EntriesThatLieAreRefusedWhenTheyAreRead)
{
    const auto errorOfReading = [&](const QByteArray &archive) {
        storage.openBytes(archive, u"a.skn"_s);
        storage.SetSection(u"S"_s);
        return errorOfPicture(u"a"_s);
    };
    const QByteArray content(100, 'x');
    for (const QByteArray name : {"aa/b.png", "aa/b.bmp"}) { // one of them is deflated
        const QString path = QString::fromUtf8(name);
        QByteArray archive = archiveOf("[S]\na='" + name + "'\n", {{path, content}});
        ASSERT_EQ(errorOfReading(archive), QString());
        for (const char size : {'\0', '\1', '\x63', '\x65'}) {
            const QString reason = errorOfReading(withHeader(archive, name, 24, QByteArray(1, size)));
            EXPECT_TRUE(reason.startsWith(u"a.skn: "_s + path + u": ")) << int(size) << reason.toStdString();
        }
        EXPECT_EQ(archive.contains(content), name.endsWith("png"));
        archive.replace(content, QByteArray(content).replace(0, 1, "y"));
        EXPECT_EQ(errorOfReading(archive).contains(path + u": damaged"), name.endsWith("png"));
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
    const auto open = [&](const QString &path) {
        storage.OpenFile(path);
        storage.SetSection(u"S"_s);
    };
    for (const QString &path : {skin.path(), skin.filePath(u"skin.toml"_s)}) {
        open(path);
        EXPECT_EQ(get<SkinPicture>(u"in"_s).image.size(), QSize(1, 1));
    }
    EXPECT_EQ(SkinFiles(skin.path()).entries().size(), 3U);

    ASSERT_TRUE(QFile::link(place.filePath(u"a.png"_s), skin.filePath(u"out.png"_s)));
    ASSERT_EQ(mkfifo(skin.filePath(u"pipe"_s).toLocal8Bit().constData(), 0600), 0);
    for (const QString &key : {u"out"_s, u"up"_s, u"pipe"_s}) {
        open(skin.path());
        EXPECT_NE(errorOfPicture(key), QString()) << key.toStdString();
    }
    EXPECT_NE(errorOf([&] { (void)SkinFiles(skin.path()).entries(); }), QString());

    writeFile(place.filePath(u"empty.skn"_s), {});
    writeFile(place.filePath(u"large.skn"_s), {});
    ASSERT_TRUE(QFile::resize(place.filePath(u"large.skn"_s), SkinLimits::bytes + 1));
    for (const QString &name : {u"."_s, u"none"_s, u"empty.skn"_s, u"large.skn"_s, u"skin/pipe"_s}) {
        const QString path = place.filePath(name);
        EXPECT_TRUE(errorOf([&] { open(path); }).startsWith(path + u": ")) << path.toStdString();
    }
    EXPECT_NE(errorOf([&] { open({}); }), QString());
}

} // namespace
