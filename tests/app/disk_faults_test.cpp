#include "emotions/colEmotions.h"
#include "emotions/emoticon_file.h"
#include "platform/clsRegistry.h"
#include "platform/rtf_saver.h"
#include "platform/skin_archive.h"
#include "platform/text_file.h"
#include "richtext/documents.h"
#include "support/files.h"
#include "support/room_fixture.h"

#include <QDir>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

/// The superuser is refused nothing: what is to fail is done as nobody.
class Unprivileged
{
public:
    Unprivileged() { EXPECT_TRUE(!m_isSuperuser || setresuid(nobody, nobody, 0) == 0); }
    ~Unprivileged() { EXPECT_TRUE(!m_isSuperuser || setresuid(0, 0, 0) == 0); }
    Q_DISABLE_COPY(Unprivileged)

private:
    static constexpr uid_t nobody = 65534;
    bool m_isSuperuser = geteuid() == 0;
};

/// No file may grow beyond so many bytes: the next best thing to a full disk.
bool limitFiles(rlim_t bytes)
{
    rlimit limit{};
    const bool isKnown = getrlimit(RLIMIT_FSIZE, &limit) == 0;
    limit.rlim_cur = std::min(bytes, limit.rlim_max);
    return isKnown && setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

bool setMode(const QString &path, mode_t mode)
{
    return chmod(qPrintable(path), mode) == 0;
}

/// One of the files in the application folder. In a good one the program reads "5", of one that it cannot
/// read it makes nothing; what it writes it reads as "77".
struct FileKind
{
    QString file;
    QByteArray good;
    std::function<QString(const clsMyApp &)> read;
    std::function<bool(const clsMyApp &)> write = {}; ///< none for what is only read
    bool isReadFirst = true;                          ///< before it is written
};

struct Saved
{
    explicit Saved(const clsMyApp &app) : file(app, options, lists) { file.load({}, {u"Sans"_s}); }

    Options options;
    UserLists lists;
    SavedSettings file;
};

/// "5" or "77", or nothing when it is neither.
QString which(bool isFive, bool isSeventySeven)
{
    return isSeventySeven ? u"77"_s : isFive ? u"5"_s : QString();
}

bool saveSession(const clsMyApp &app)
{
    QWidget window;
    RtfSaver saver(documentOf({u"77"_s}), app.Path() + u"evening.rtf", &window);
    std::optional<bool> whole;
    QObject::connect(&saver, &RtfSaver::finished, [&](bool saved) { whole = saved; });
    saver.start();
    EXPECT_TRUE(eventually([&] { return whole.has_value(); }));
    return whole.value_or(false);
}

SettingsFile settingsOf(const clsMyApp &app)
{
    SettingsFile settings;
    settings.FileName = app.Path() + u"Pylox.ini";
    return settings;
}

QString backColourOf(const SkinInUse &skin)
{
    const ColourValue colour = skin.description().FormDefaults(FormItem::BackColour).colour();
    return skin.description().isRead() ? QString::number(colour) : QString();
}

const FileKind kinds[] = {
    {u"Blue ChatOpt.dat"_s, "HIGHLIGHT    5\r\n",
     [](const clsMyApp &app) {
         const Saved saved(app);
         return which(saved.options.HIGHLIGHT == 5, saved.options.HIGHLIGHT == 77);
     },
     [](const clsMyApp &app) {
         Saved saved(app);
         saved.options.HIGHLIGHT = 77;
         return saved.file.SaveOptions({});
     }},
    {u"ChatList.dat"_s, "I-5          Five\r\n",
     [](const clsMyApp &app) {
         const Saved saved(app);
         return which(IsInList(saved.lists.IgnoreList, u"5"_s), IsInList(saved.lists.IgnoreList, u"77"_s));
     },
     [](const clsMyApp &app) {
         Saved saved(app);
         AddToList(saved.lists, u'I', u"77"_s, u"Seventy-seven"_s);
         return saved.file.SaveLists();
     }},
    {u"Pylox.ini"_s, "[Chat]\nPort=5\n",
     [](const clsMyApp &app) { return settingsOf(app).ReadValue(u"Port"_s, {}, u"Chat"_s); },
     [](const clsMyApp &app) { return settingsOf(app).WriteValue(u"Port"_s, u"77"_s, u"Chat"_s); }},
    {u"evening.rtf"_s, "{\\rtf1 5}",
     [](const clsMyApp &app) {
         const QString text = readTextFile(app.Path() + u"evening.rtf").value_or(QString());
         return which(text.contains(u" 5}"_s), text.contains(u"77"_s));
     },
     saveSession, false},
    {u"Registry.reg"_s, "[HKEY_CURRENT_USER\\A]\n\"b\"=\"5\"\n",
     [](const clsMyApp &app) {
         clsRegistry registry(app.Path() + u"Registry.reg");
         registry.SectionKey = u"A"_s;
         registry.ValueKey = u"b"_s;
         return registry.Value().toString();
     }},
    {u"Emoticon.dat"_s, ":five\n5\n",
     [](const clsMyApp &app) { return EmoticonFile(app.Path()).table().CheckEmotion(u":five"); }},
    {u"emotions.dat"_s, "5\nx\ny\n",
     [](const clsMyApp &app) {
         colEmotions emotions;
         LoadEmotions(emotions, app.Path());
         return emotions.Count() == 0 ? QString() : emotions.Item(1)->Emotion;
     }},
    {u"Blue.skn"_s, skinArchive({{u"skin.toml"_s, "[Defaults]\nBackColour = 5\n"}}),
     [](const clsMyApp &app) {
         SkinInUse skin(app, WindowFrame::Skin, [](const QString &) {});
         skin.change();
         return backColourOf(skin);
     }},
};

/// What is wrong with a file, and what the program can do all the same: read, write, or replace it unread.
struct Fault
{
    const char *name;
    QByteArray can;
    std::function<bool(const QString &path)> plant; ///< where there is a good file
};

constexpr qint64 large = qint64{100} << 20; // bytes

const Fault faults[] = {
    {"None", "read write", [](auto &) { return true; }},
    {"Missing", "write", [](auto &path) { return QFile::remove(path); }},
    {"Empty", "write", [](auto &path) { return QFile::resize(path, 0); }},
    {"Garbage", "write",
     [](auto &path) {
         writeFile(path, QByteArray("\x01[\xFF=\"\0{", 7).repeated(99));
         return true;
     }},
    {"TooLarge", "replace", [](auto &path) { return QFile::resize(path, large); }},
    {"Folder", "", [](auto &path) { return QFile::remove(path) && QDir().mkdir(path); }},
    {"Pipe", "replace",
     [](auto &path) { return QFile::remove(path) && mkfifo(qPrintable(path), 0600) == 0; }},
    {"Link", "read write",
     [](auto &path) { return QFile::rename(path, path + u".real") && QFile::link(path + u".real", path); }},
    {"LinkToNothing", "write",
     [](auto &path) { return QFile::remove(path) && QFile::link(path + u".real", path); }},
    {"LinkToItself", "write", [](auto &path) { return QFile::remove(path) && QFile::link(path, path); }},
    {"Unreadable", "", [](auto &path) { return setMode(path, 0); }},
    {"ReadOnly", "read", [](auto &path) { return setMode(path, 0400); }},
    {"ReadOnlyFolder", "read", [](auto &path) { return setMode(QFileInfo(path).path(), 0500); }},
    {"FullDisk", "read", [](auto &) { return limitFiles(8); }},
};

/// The file itself, links not followed.
std::tuple<ino_t, mode_t, off_t, time_t, long> stampOf(const QString &path)
{
    struct stat status = {};
    lstat(qPrintable(path), &status);
    return {status.st_ino, status.st_mode, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

void expectWholeFiles(const FileKind &kind, const Fault &fault)
{
    SCOPED_TRACE(kind.file.toStdString() + ", " + fault.name);
    const QTemporaryDir folder;
    clsMyApp app(folder.path());
    app.Skin = app.Path() + u"Blue.skn";
    const QString path = app.Path() + kind.file;
    writeFile(path, kind.good);
    ASSERT_TRUE(fault.plant(path));
    const auto entries = [&] { return QDir(folder.path()).entryList(QDir::AllEntries | QDir::System); };
    const QStringList known = entries() + QStringList{kind.file, kind.file + u".real"};
    const auto before = stampOf(path);
    const QString old = fault.can.contains("read") ? u"5"_s : u""_s;
    EXPECT_EQ(kind.read(app), old);
    if (kind.write) {
        const bool canWrite =
            fault.can.contains("write") || (fault.can.contains("replace") && !kind.isReadFirst);
        EXPECT_EQ(kind.write(app), canWrite);
        EXPECT_EQ(kind.read(app), canWrite ? u"77"_s : old);
        EXPECT_TRUE(canWrite || stampOf(path) == before) << "what is there is as it was";
    }
    EXPECT_TRUE(limitFiles(RLIM_INFINITY) && setMode(folder.path(), 0700));
    for (const QString &left : entries()) {
        EXPECT_TRUE(known.contains(left)) << qPrintable(left) << " is left behind";
    }
}

TEST(DiskFaults, TheOldFileStaysOrTheNewOneIsWhole)
{
    std::signal(SIGXFSZ, SIG_IGN);
    const Unprivileged guard;
    for (const FileKind &kind : kinds) {
        for (const Fault &fault : faults) {
            expectWholeFiles(kind, fault);
        }
    }
}

/// Does it again and again in another thread, as long as what comes back lives.
std::jthread meanwhile(const std::function<void(int round)> &act)
{
    return std::jthread([act](const std::stop_token &ends) {
        for (int round = 0; !ends.stop_requested(); ++round) {
            act(round);
        }
    });
}

TEST(ChangingFiles, AreReadAsTheyWereOrAsTheyAreAndNeverForEver)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a"_s);
    const QString texts[] = {QString(300'000, u'a'), QString(200'000, u'b')};
    ASSERT_TRUE(writeTextFile(path, texts[0]));
    {
        const std::jthread replaced =
            meanwhile([&](int round) { (void)writeTextFile(path, texts[round % 2]); });
        for (int i = 0; i < 100; ++i) {
            const QString text = readTextFile(path).value_or(QString());
            ASSERT_TRUE(text == texts[0] || text == texts[1]) << text.size();
        }
    }
    const std::jthread grows = meanwhile([&](int) {
        QFile file(path);
        if (file.open(QIODevice::Append) && file.size() < large) {
            file.write(QByteArray(1 << 20, 'c'));
        }
    });
    while (QFileInfo(path).size() < large) {
        EXPECT_LE(readTextFile(path).value_or(QString()).size(), 16 << 20);
    }
}

/// The room window, in the skin that lies in its folder.
struct ChangingSkin : RoomFixture
{
    void take()
    {
        receive(u"<SKINCHANGE value=\""_s + path + u"\"/>");
        colours += backColourOf(skin);
    }

    /// Puts something else in its place, or nothing.
    void change(int round) const
    {
        QFile::remove(path);
        QDir().rmdir(path);
        if (round % 4 == 0) {
            writeFile(path, QByteArray(1000, 'x'));
        } else if (round % 4 == 1) {
            QDir().mkdir(path);
        } else if (round % 4 == 2) {
            writeSkinArchive({{u"skin.toml"_s, "[Defaults]\nBackColour = 6\n"}}, path);
        }
    }

    QString path = folder.filePath(u"Blue.skn"_s);
    QStringList colours;
};

TEST_F(ChangingSkin, OneThatCannotBeHadLeavesTheOneBefore)
{
    writeFile(path, std::end(kinds)[-1].good);
    take();
    text->setText(u"typed"_s);
    window.AddMessage(u"hello"_s, MessageKind::Normal);
    {
        const std::jthread others = meanwhile([this](int round) { change(round); });
        for (int i = 0; i < 50; ++i) {
            take();
        }
    }
    change(2);
    take();
    EXPECT_TRUE(colours.first() == u"5" && colours.last() == u"6");
    colours.removeDuplicates();
    EXPECT_EQ(colours, (QStringList{u"5"_s, u"6"_s})) << "and nothing in between";
    EXPECT_TRUE(window.isVisible() && text->text() == u"typed" && shown(u"SERVER: hello"_s) == 1);
    change(3);
    EXPECT_FALSE(skin.change()) << "nor does a screen with finer pixels take it away";
    EXPECT_EQ(backColourOf(skin), u"6"_s);
}

} // namespace
