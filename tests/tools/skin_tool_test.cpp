#include "core/clsMyApp.h"
#include "skin/skin_in_use.h"
#include "tools/authored_files.h"
#include "tools/skin/key_notes.h"
#include "tools/skin/skin_reference.h"

#include <QDir>
#include <QDirIterator>
#include <QProcess>

#include <algorithm>

namespace {

/// By path, all files below the folder.
QMap<QString, QByteArray> filesIn(const QString &folder)
{
    QMap<QString, QByteArray> files;
    QDirIterator all(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QString path = all.next();
        files.insert(QDir(folder).relativeFilePath(path), contentOf(path));
    }
    return files;
}

struct SkinTool : testing::Test
{
    [[nodiscard]] QString path(const QString &name) const { return place.filePath(name); }

    /// Runs a command, whose files are named below the folder of the test, and looks how it ends.
    Outcome expect(int code, const QString &line) const
    {
        QStringList words = line.split(u' ');
        std::for_each(words.begin() + 1, words.end(), [&](QString &word) { word = path(word); });
        Outcome outcome = run(words);
        EXPECT_EQ(outcome.code, code) << line.toStdString() << ": " << outcome.errors.toStdString();
        return outcome;
    }

    QTemporaryDir place;
};

TEST_F(SkinTool, ANewSkinHasNoProblemAndIsReadAsAWhole)
{
    (void)expect(0, u"new new"_s);
    const QString check = expect(0, u"check new"_s).out;
    EXPECT_TRUE(check.endsWith(u"new: no problem found\n"_s)) << check.toStdString();
    clsMyApp app(place.path());
    app.Skin = path(u"new/skin.toml"_s);
    QStringList notes;
    SkinInUse skin(app, WindowFrame::Skin, [&](const QString &note) { notes += note; });
    EXPECT_TRUE(skin.change());
    EXPECT_EQ(notes, QStringList());
    EXPECT_EQ(skin.description().ChatRoom(RoomItem::SendText).text(), u"&Send"_s);
}

TEST_F(SkinTool, EveryKeyIsExplained)
{
    for (const SkinSection &section : skinCatalogue()) {
        for (const SkinKey &key : section.keys) {
            const QString words = purposeOf({section.name, key.name});
            EXPECT_FALSE(words.isEmpty() || words.startsWith(u':') || words.endsWith(u": "))
                << section.name.toString().toStdString() << ", " << key.name.toString().toStdString();
        }
    }
}

TEST_F(SkinTool, PackingTakesWhatIsNamedAndUnpackingGivesItBack)
{
    AuthoredFiles files;
    files.replaceLine("\"Over Button\"", "\"Over Button\" = 'pictures\\default-button\\.\\over-button.png'");
    files.replaceLine("BackGround", "BackGround = '\u00E9.png'");
    files.file(u"\u00E9.png"_s) = encoded(plain({1, 1}, 0));
    files.remove(u"pictures/menu/back-ground.png"_s);
    files.remove(u"pictures/menu/back-ground@2x.png"_s);
    files.writeFolder(path(u"a"_s));
    const auto before = filesIn(path(u"a"_s));
    writeFile(path(u"a/drawing.xcf"_s), "not named");
    writeFile(path(u"a/pictures/old.png"_s), "not named");

    for (const QString &line :
         {u"pack a a.skn"_s, u"unpack a.skn b/c"_s, u"pack b/c/skin.toml b.skn"_s, u"pack a.skn c.skn"_s}) {
        (void)expect(0, line);
    }
    EXPECT_EQ(filesIn(path(u"b/c"_s)), before);
    EXPECT_EQ(contentOf(path(u"a.skn"_s)), contentOf(path(u"b.skn"_s)));
    EXPECT_EQ(contentOf(path(u"a.skn"_s)), contentOf(path(u"c.skn"_s)));
    EXPECT_EQ(skinArchive({{u"a"_s, "1"}, {u"b"_s, "2"}}), skinArchive({{u"b"_s, "2"}, {u"a"_s, "1"}}));

    ASSERT_TRUE(QFile::remove(path(u"a/pictures/default-button/over-button.png"_s)));
    EXPECT_TRUE(expect(0, u"pack a a.skn"_s).errors.contains(u"over-button.png is not there"_s));
}

TEST_F(SkinTool, WhatCouldNotBeOpenedAgainIsNotPacked)
{
    const std::pair<Spoiling, QString> cases[] = {
        {[](AuthoredFiles &f) { f.toml() += "]"; }, u"skin.toml:"_s},
        {lineTo("BackGround = '../../etc/passwd'"), u"leads out"_s},
        {lineTo("BackGround = '/etc/passwd'"), u"absolute"_s},
        {drawn(u"menu/back-ground"_s, 4097, 1), u"larger than 4096"_s},
        {[](AuthoredFiles &f) {
             f.replaceLine("BackGround", "BackGround = '\u00C9.png'");
             f.replaceLine("Password", "Password = '\u00E9.png'");
             f.file(u"\u00C9.png"_s) = f.file(u"\u00E9.png"_s) = encoded(plain({1, 1}, 0));
         },
         u".png: the name is there twice"_s},
        {[](AuthoredFiles &f) { f.remove(u"skin.toml"_s); }, u"no skin.toml"_s},
    };
    writeFile(path(u"a.skn"_s), "as it was");
    for (const auto &[spoil, reason] : cases) {
        SCOPED_TRACE(reason.toStdString());
        AuthoredFiles files;
        spoil(files);
        QDir(path(u"a"_s)).removeRecursively();
        files.writeFolder(path(u"a"_s));
        const QString errors = expect(1, u"pack a a.skn"_s).errors;
        EXPECT_TRUE(errors.contains(reason)) << errors.toStdString();
        EXPECT_EQ(contentOf(path(u"a.skn"_s)), "as it was");
    }
    (void)expect(1, u"pack none b.skn"_s);
    (void)expect(0, u"new c"_s);
    (void)expect(1, u"pack c none/b.skn"_s);
}

TEST_F(SkinTool, FoldersAreWrittenAsAWholeOrLeftAlone)
{
    const QByteArray good = AuthoredFiles().archive();
    QByteArray damaged = good;
    damaged[damaged.indexOf("IHDR", damaged.size() / 2)] = 'i';
    writeFile(path(u"good.skn"_s), good);
    writeFile(path(u"damaged.skn"_s), damaged);
    writeFile(path(u"out.skn"_s), QByteArray(good).replace("pictures/menu/back-g", "../tures/menu/back-g"));
    writeFile(path(u"blocked.skn"_s), skinArchive({{u"skin.toml"_s, "a = 1"}, {u"a"_s, {}}, {u"a/b"_s, {}}}));
    for (const QString &name : {u"damaged"_s, u"out"_s, u"blocked"_s, u"none"_s}) {
        const Outcome unpacked = expect(1, u"unpack "_s + name + u".skn folder");
        EXPECT_TRUE(unpacked.errors.startsWith(u"pylox-skin: "_s));
        EXPECT_TRUE(filesIn(path(u"folder"_s)).isEmpty()) << name.toStdString();
    }
    ASSERT_TRUE(QDir().mkpath(path(u"full"_s)) && QDir().mkpath(path(u"empty"_s)));
    writeFile(path(u"full/.mine"_s), "mine");
    writeFile(path(u"file"_s), "mine");
    for (const QString &folder : {u"full"_s, u"file"_s, u"file/below"_s}) {
        (void)expect(1, u"new "_s + folder);
        (void)expect(1, u"unpack good.skn "_s + folder);
    }
    EXPECT_EQ(filesIn(path(u"full"_s)).keys(), QStringList{u".mine"_s});
    (void)expect(0, u"unpack good.skn empty"_s);
}

TEST_F(SkinTool, WrongCommandLinesAreExplained)
{
    const std::pair<QString, QString> cases[] = {
        {{}, u"a command is needed"_s},
        {u"chekc a"_s, u"there is no command \"chekc\""_s},
        {u"--bogus"_s, u"there is no command"_s},
        {u"check"_s, u"check takes 1"_s},
        {u"check a b"_s, u"check takes 1"_s},
        {u"pack a"_s, u"pack takes 2"_s},
        {u"check --fast"_s, u"check has no option --fast"_s},
        {u"check a --scale 2"_s, u"no option --scale"_s},
        {u"preview a b --scale"_s, u"--scale is 1, 1.5 or 2"_s},
        {u"preview a b --scale 3"_s, u"--scale is 1, 1.5 or 2"_s},
        {u"preview a --scale 2"_s, u"preview takes 2"_s},
    };
    for (const auto &[line, error] : cases) {
        SCOPED_TRACE(line.toStdString());
        const Outcome outcome = run(line.split(u' ', Qt::SkipEmptyParts));
        EXPECT_EQ(outcome.code, 2);
        EXPECT_TRUE(outcome.errors.contains(error)) << outcome.errors.toStdString();
        EXPECT_EQ(outcome.out, QString());
    }
    for (const QStringList &arguments : {QStringList{u"--help"_s}, QStringList{u"check"_s, u"--help"_s}}) {
        EXPECT_EQ(run(arguments).code, 0);
        EXPECT_TRUE(run(arguments).out.startsWith(u"Usage: pylox-skin "_s));
    }
}

TEST_F(SkinTool, TheProgramDrawsPreviewsAtTheirScale)
{
    AuthoredFiles().writeFolder(path(u"a"_s));
    const auto preview = [&](const QString &skin, const QString &file, const QStringList &more, int code) {
        QProcess program;
        program.start(QStringLiteral(PYLOX_BIN_DIR "/pylox-skin"),
                      QStringList{u"preview"_s, path(skin), path(file)} + more);
        EXPECT_TRUE(program.waitForFinished(30000));
        EXPECT_EQ(program.exitCode(), code) << program.readAllStandardError().toStdString();
        return QImage(path(file));
    };
    const QImage once = preview(u"a"_s, u"a.png"_s, {}, 0);
    EXPECT_TRUE(once.width() > 600 && once.height() > 800);
    EXPECT_EQ(once.pixelColor(once.width() - 1, 0), QColor(0x5b, 0x7c, 0x99));
    EXPECT_EQ(once.pixelColor(40, 30), QColor(0xdd, 0xe4, 0xee)) << "the title strip of the skin";
    const QImage finer = preview(u"a"_s, u"a.png"_s, {u"--scale"_s, u"1.5"_s}, 0);
    EXPECT_NEAR(finer.width(), 1.5 * once.width(), 0.05 * finer.width());
    EXPECT_EQ(finer.pixelColor(60, 45), QColor(0xdd, 0xe4, 0xee));
    (void)preview(u"none"_s, u"b.png"_s, {}, 1);
    EXPECT_FALSE(QFile::exists(path(u"b.png"_s)));
}

TEST_F(SkinTool, TheReferenceIsInTheDocumentation)
{
    const QString file = QStringLiteral(PYLOX_SOURCE_DIR "/docs/skin-format.md");
    const QByteArray document = contentOf(file);
    EXPECT_TRUE(QString::fromUtf8(document) == withKeyReference(QString::fromUtf8(document)))
        << "bring it up to date: pylox-skin keys docs/skin-format.md";

    writeFile(path(u"a.md"_s), "before\n<!-- keys -->\nold\n<!-- end of keys -->\nafter\n");
    (void)expect(0, u"keys a.md"_s);
    const QString keys =
        u"before\n<!-- keys -->\n\n"_s + run({u"keys"_s}).out + u"\n<!-- end of keys -->\nafter\n";
    EXPECT_EQ(QString::fromUtf8(contentOf(path(u"a.md"_s))), keys);
    writeFile(path(u"b.md"_s), "no place");
    (void)expect(1, u"keys b.md"_s);
    EXPECT_EQ(contentOf(path(u"b.md"_s)), "no place");
}

} // namespace
