#include "core/clsMyApp.h"
#include "skin/skin_in_use.h"
#include "tools/authored_files.h"
#include "tools/skin/key_notes.h"
#include "tools/skin/skin_reference.h"

#include <QDir>
#include <QDirIterator>
#include <QProcess>

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

    QTemporaryDir place;
};

TEST_F(SkinTool, ANewSkinHasNoProblemAndIsReadAsAWhole)
{
    EXPECT_EQ(run({u"new"_s, path(u"new"_s)}).code, 0);
    const Outcome check = run({u"check"_s, path(u"new"_s)});
    EXPECT_EQ(check.code, 0);
    EXPECT_TRUE(check.out.endsWith(u"new: no problem found\n"_s)) << check.out.toStdString();
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
    const QString name = u"pictures/default-button/over-button.png"_s;
    files.replaceLine("\"Over Button\"", "\"Over Button\" = 'pictures\\default-button\\.\\over-button.png'");
    files.writeFolder(path(u"a"_s));
    const auto before = filesIn(path(u"a"_s));
    writeFile(path(u"a/drawing.xcf"_s), "not named");
    writeFile(path(u"a/pictures/old.png"_s), "not named");

    ASSERT_EQ(run({u"pack"_s, path(u"a"_s), path(u"a.skn"_s)}).code, 0);
    ASSERT_EQ(run({u"unpack"_s, path(u"a.skn"_s), path(u"b/c"_s)}).code, 0);
    EXPECT_EQ(filesIn(path(u"b/c"_s)), before);
    ASSERT_EQ(run({u"pack"_s, path(u"b/c/skin.toml"_s), path(u"b.skn"_s)}).code, 0);
    ASSERT_EQ(run({u"pack"_s, path(u"a.skn"_s), path(u"c.skn"_s)}).code, 0);
    EXPECT_EQ(contentOf(path(u"a.skn"_s)), contentOf(path(u"b.skn"_s)));
    EXPECT_EQ(contentOf(path(u"a.skn"_s)), contentOf(path(u"c.skn"_s)));

    ASSERT_TRUE(QFile::remove(path(u"a/"_s + name)));
    const Outcome packed = run({u"pack"_s, path(u"a"_s), path(u"a.skn"_s)});
    EXPECT_EQ(packed.code, 0);
    EXPECT_TRUE(packed.errors.contains(u"over-button.png is not there"_s)) << packed.errors.toStdString();
}

TEST_F(SkinTool, WhatCouldNotBeOpenedAgainIsNotPacked)
{
    const std::pair<Spoiling, QString> cases[] = {
        {[](AuthoredFiles &f) { f.toml() += "]"; }, u"skin.toml:"_s},
        {lineTo("BackGround = '../../etc/passwd'"), u"leads out"_s},
        {lineTo("BackGround = '/etc/passwd'"), u"absolute"_s},
        {drawn(u"menu/back-ground"_s, 4097, 1), u"larger than 4096"_s},
        {[](AuthoredFiles &f) {
             f.replaceLine("BackGround", "BackGround = 'A.png'");
             f.replaceLine("Password", "Password = 'a.png'");
             f.file(u"A.png"_s) = f.file(u"a.png"_s) = encoded(plain({1, 1}, 0));
         },
         u"a.png: the name is there twice"_s},
        {[](AuthoredFiles &f) { f.remove(u"skin.toml"_s); }, u"no skin.toml"_s},
    };
    writeFile(path(u"a.skn"_s), "as it was");
    for (const auto &[spoil, reason] : cases) {
        AuthoredFiles files;
        spoil(files);
        const QString folder = path(reason);
        files.writeFolder(folder);
        const Outcome packed = run({u"pack"_s, folder, path(u"a.skn"_s)});
        EXPECT_EQ(packed.code, 1) << reason.toStdString();
        EXPECT_TRUE(packed.errors.contains(reason))
            << reason.toStdString() << " <- " << packed.errors.toStdString();
        EXPECT_EQ(contentOf(path(u"a.skn"_s)), "as it was");
    }
    EXPECT_EQ(run({u"pack"_s, path(u"none"_s), path(u"b.skn"_s)}).code, 1);
    EXPECT_EQ(run({u"new"_s, path(u"c"_s)}).code, 0);
    EXPECT_EQ(run({u"pack"_s, path(u"c"_s), path(u"none/b.skn"_s)}).code, 1);
}

TEST_F(SkinTool, FoldersAreWrittenAsAWholeOrLeftAlone)
{
    const QByteArray good = AuthoredFiles().archive();
    const auto archive = [&](const QString &name, const QByteArray &bytes) {
        writeFile(path(name), bytes);
        return path(name);
    };
    const QString whole = archive(u"a.skn"_s, good);
    QByteArray out = good;
    out.replace("pictures/menu/back-ground.png", "../tures/menu/back-ground.png");
    QByteArray damaged = good;
    damaged[damaged.indexOf("IHDR", damaged.size() / 2)] = 'i';
    const QByteArray blocked =
        skinArchive({{u"skin.toml"_s, "a = 1"}, {u"a"_s, "a file"}, {u"a/b"_s, "in the file"}});

    for (const QString &file : {archive(u"b.skn"_s, out), archive(u"c.skn"_s, damaged),
                                archive(u"d.skn"_s, blocked), path(u"none.skn"_s)}) {
        const Outcome unpacked = run({u"unpack"_s, file, path(u"folder"_s)});
        EXPECT_EQ(unpacked.code, 1) << file.toStdString();
        EXPECT_TRUE(unpacked.errors.startsWith(u"pylox-skin: "_s));
        EXPECT_TRUE(filesIn(path(u"folder"_s)).isEmpty()) << file.toStdString();
    }
    ASSERT_TRUE(QDir().mkpath(path(u"full"_s)));
    writeFile(path(u"full/.mine"_s), "mine");
    writeFile(path(u"file"_s), "mine");
    for (const QString &folder : {path(u"full"_s), path(u"file"_s), path(u"file/below"_s)}) {
        EXPECT_EQ(run({u"new"_s, folder}).code, 1) << folder.toStdString();
        EXPECT_EQ(run({u"unpack"_s, whole, folder}).code, 1) << folder.toStdString();
    }
    EXPECT_EQ(filesIn(path(u"full"_s)).keys(), QStringList{u".mine"_s});
    ASSERT_TRUE(QDir().mkpath(path(u"empty"_s)));
    EXPECT_EQ(run({u"unpack"_s, whole, path(u"empty"_s)}).code, 0);
}

TEST_F(SkinTool, WrongCommandLinesAreExplained)
{
    const std::pair<QStringList, QString> cases[] = {
        {{}, u"a command is needed"_s},
        {{u"chekc"_s, u"a"_s}, u"there is no command \"chekc\""_s},
        {{u"--bogus"_s}, u"there is no command"_s},
        {{u"check"_s}, u"check takes 1"_s},
        {{u"check"_s, u"a"_s, u"b"_s}, u"check takes 1"_s},
        {{u"pack"_s, u"a"_s}, u"pack takes 2"_s},
        {{u"check"_s, u"--fast"_s}, u"check has no option --fast"_s},
        {{u"check"_s, u"a"_s, u"--scale"_s, u"2"_s}, u"no option --scale"_s},
        {{u"preview"_s, u"a"_s, u"b"_s, u"--scale"_s}, u"--scale is 1, 1.5 or 2"_s},
        {{u"preview"_s, u"a"_s, u"b"_s, u"--scale"_s, u"3"_s}, u"--scale is 1, 1.5 or 2"_s},
        {{u"preview"_s, u"a"_s, u"--scale"_s, u"2"_s}, u"preview takes 2"_s},
    };
    for (const auto &[arguments, error] : cases) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.code, 2) << error.toStdString();
        EXPECT_TRUE(outcome.errors.contains(error))
            << error.toStdString() << " <- " << outcome.errors.toStdString();
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
    const auto preview = [&](const QStringList &more) {
        QProcess program;
        program.start(QStringLiteral(PYLOX_BIN_DIR "/pylox-skin"),
                      QStringList{u"preview"_s, path(u"a"_s), path(u"a.png"_s)} + more);
        EXPECT_TRUE(program.waitForFinished(30000));
        EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
        return QImage(path(u"a.png"_s));
    };
    const QImage once = preview({});
    EXPECT_GT(once.width(), 600);
    EXPECT_GT(once.height(), 800);
    EXPECT_EQ(once.pixelColor(once.width() - 1, 0), QColor(0x5b, 0x7c, 0x99));
    EXPECT_EQ(once.pixelColor(40, 30), QColor(0xdd, 0xe4, 0xee)) << "the title strip of the skin";
    const QImage finer = preview({u"--scale"_s, u"1.5"_s});
    EXPECT_NEAR(finer.width(), 1.5 * once.width(), 0.05 * finer.width());
    EXPECT_EQ(finer.pixelColor(60, 45), QColor(0xdd, 0xe4, 0xee));

    QProcess program;
    program.start(QStringLiteral(PYLOX_BIN_DIR "/pylox-skin"),
                  {u"preview"_s, path(u"none"_s), path(u"b.png"_s)});
    EXPECT_TRUE(program.waitForFinished(30000));
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_FALSE(QFile::exists(path(u"b.png"_s)));
}

TEST_F(SkinTool, TheReferenceIsInTheDocumentation)
{
    const QString file = QStringLiteral(PYLOX_SOURCE_DIR "/docs/skin-format.md");
    const QByteArray document = contentOf(file);
    EXPECT_TRUE(QString::fromUtf8(document) == withKeyReference(QString::fromUtf8(document)))
        << "bring it up to date: pylox-skin keys docs/skin-format.md";

    writeFile(path(u"a.md"_s), "before\n<!-- keys -->\nold\n<!-- end of keys -->\nafter\n");
    ASSERT_EQ(run({u"keys"_s, path(u"a.md"_s)}).code, 0);
    EXPECT_EQ(
        QString::fromUtf8(contentOf(path(u"a.md"_s))),
        QString(u"before\n<!-- keys -->\n\n"_s + run({u"keys"_s}).out + u"\n<!-- end of keys -->\nafter\n"));
    writeFile(path(u"b.md"_s), "no place");
    EXPECT_EQ(run({u"keys"_s, path(u"b.md"_s)}).code, 1);
    EXPECT_EQ(contentOf(path(u"b.md"_s)), "no place");
}

} // namespace
