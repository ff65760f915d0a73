#include "core/user_lists.h"
#include "emotions/colEmotions.h"
#include "emotions/emoticon_file.h"
#include "platform/clsRegistry.h"
#include "platform/rtf_saver.h"
#include "platform/settings_file.h"
#include "platform/skin_archive.h"
#include "platform/text_file.h"
#include "room/saved_settings.h"
#include "skin/skin_in_use.h"
#include "support/room_fixture.h"

#include <QDir>

#include <atomic>
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
    Unprivileged(const Unprivileged &) = delete;
    Unprivileged &operator=(const Unprivileged &) = delete;

private:
    static constexpr uid_t nobody = 65534;
    bool m_isSuperuser = geteuid() == 0;
};

/// No file may grow beyond so many bytes: the next best thing to a full disk.
void limitFiles(rlim_t bytes)
{
    rlimit limit{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
    limit.rlim_cur = std::min(bytes, limit.rlim_max);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
}

void put(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray local(const QString &path)
{
    return QFile::encodeName(path);
}

/// One of the files in the application folder. In a good one the program reads "5", of one that it cannot
/// read it makes nothing; what it writes it reads as "77".
struct FileKind
{
    const char *name;
    QString file;
    QByteArray good;
    std::function<QString(const clsMyApp &)> read;
    std::function<bool(const clsMyApp &)> write; ///< none for what is only read
    bool isReadFirst = true;                     ///< before it is written
};

void PrintTo(const FileKind &kind, std::ostream *out)
{
    *out << kind.name;
}

template <typename Use>
auto withSettings(const clsMyApp &app, Use use)
{
    Options options;
    UserLists lists;
    SavedSettings saved(app, options, lists);
    saved.load({}, {u"Sans"_s});
    return use(options, lists, saved);
}

bool saveSession(const clsMyApp &app)
{
    QWidget window;
    RichDocument text;
    ParagraphBuilder builder;
    builder.append(u"77", 0);
    text.appendParagraph(builder.take(0));
    RtfSaver saver(std::move(text), app.Path() + u"evening.rtf", &window);
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
    {"Options", u"Blue ChatOpt.dat"_s, "HIGHLIGHT    5\r\n",
     [](const clsMyApp &app) {
         return withSettings(app, [](const Options &options, auto &, auto &) {
             const bool isKnown = options.HIGHLIGHT == 5 || options.HIGHLIGHT == 77;
             return isKnown ? QString::number(options.HIGHLIGHT) : QString();
         });
     },
     [](const clsMyApp &app) {
         return withSettings(app, [](Options &options, auto &, SavedSettings &saved) {
             options.HIGHLIGHT = 77;
             return saved.SaveOptions({});
         });
     }},
    {"Lists", u"ChatList.dat"_s, "I-5          Five\r\n",
     [](const clsMyApp &app) {
         return withSettings(app, [](auto &, const UserLists &lists, auto &) {
             return IsInList(lists.IgnoreList, u"77"_s)  ? u"77"_s
                    : IsInList(lists.IgnoreList, u"5"_s) ? u"5"_s
                                                         : QString();
         });
     },
     [](const clsMyApp &app) {
         return withSettings(app, [](auto &, UserLists &lists, SavedSettings &saved) {
             AddToList(lists, u'I', u"77"_s, u"Seventy-seven"_s);
             return saved.SaveLists();
         });
     }},
    {"Settings", u"Pylox.ini"_s, "[Chat]\nPort=5\n",
     [](const clsMyApp &app) { return settingsOf(app).ReadValue(u"Port"_s, {}, u"Chat"_s); },
     [](const clsMyApp &app) { return settingsOf(app).WriteValue(u"Port"_s, u"77"_s, u"Chat"_s); }},
    {"Session", u"evening.rtf"_s, "{\\rtf1 5}",
     [](const clsMyApp &app) {
         const QString text = readTextFile(app.Path() + u"evening.rtf").value_or(QString());
         return text.contains(u"77"_s) ? u"77"_s : text.contains(u" 5}"_s) ? u"5"_s : QString();
     },
     saveSession, false},
    {"Registry",
     u"Registry.reg"_s,
     "[HKEY_CURRENT_USER\\A]\n\"b\"=\"5\"\n",
     [](const clsMyApp &app) {
         clsRegistry registry(app.Path() + u"Registry.reg");
         registry.SectionKey = u"A"_s;
         registry.ValueKey = u"b"_s;
         return registry.Value().toString();
     },
     {}},
    {"Emoticons",
     u"Emoticon.dat"_s,
     ":five\n5\n",
     [](const clsMyApp &app) { return EmoticonFile(app.Path()).table().CheckEmotion(u":five"); },
     {}},
    {"Emotions",
     u"emotions.dat"_s,
     "5\nx\ny\n",
     [](const clsMyApp &app) {
         colEmotions emotions;
         LoadEmotions(emotions, app.Path());
         return emotions.Count() == 0 ? QString() : emotions.Item(1)->Emotion;
     },
     {}},
    {"Skin",
     u"Blue.skn"_s,
     skinArchive({{u"skin.toml"_s, "[Defaults]\nBackColour = 5\n"}}),
     [](const clsMyApp &app) {
         SkinInUse skin(app, WindowFrame::Skin, [](const QString &) {});
         skin.change();
         return backColourOf(skin);
     },
     {}},
};

enum class Written
{
    No,
    ByThoseWhoNeedNotReadIt,
    Yes,
};

/// What is wrong with a file, and how the program ends then.
struct Fault
{
    const char *name;
    std::function<void(const QString &path, const QByteArray &good)> plant;
    bool isRead;
    Written isWritten;
};

constexpr qint64 large = qint64{100} << 20; // bytes

const Fault faults[] = {
    {"None", put, true, Written::Yes},
    {"Missing", [](const QString &, const QByteArray &) {}, false, Written::Yes},
    {"Empty", [](const QString &path, const QByteArray &) { put(path, {}); }, false, Written::Yes},
    {"Garbage",
     [](const QString &path, const QByteArray &) {
         put(path, QByteArray("\x01[\xFF=\"\0{", 7).repeated(99));
     },
     false, Written::Yes},
    {"TooLarge",
     [](const QString &path, const QByteArray &good) {
         put(path, good);
         ASSERT_TRUE(QFile::resize(path, large));
     },
     false, Written::ByThoseWhoNeedNotReadIt},
    {"Folder", [](const QString &path, const QByteArray &) { QDir().mkdir(path); }, false, Written::No},
    {"Pipe",
     [](const QString &path, const QByteArray &) { ASSERT_EQ(mkfifo(local(path).constData(), 0600), 0); },
     false, Written::ByThoseWhoNeedNotReadIt},
    {"Link",
     [](const QString &path, const QByteArray &good) {
         put(path + u".real", good);
         ASSERT_TRUE(QFile::link(path + u".real", path));
     },
     true, Written::Yes},
    {"LinkToNothing",
     [](const QString &path, const QByteArray &) { ASSERT_TRUE(QFile::link(path + u".real", path)); }, false,
     Written::Yes},
    {"LinkToItself", [](const QString &path, const QByteArray &) { ASSERT_TRUE(QFile::link(path, path)); },
     false, Written::Yes},
    {"Unreadable",
     [](const QString &path, const QByteArray &good) {
         put(path, good);
         ASSERT_EQ(chmod(local(path).constData(), 0), 0);
     },
     false, Written::No},
    {"ReadOnly",
     [](const QString &path, const QByteArray &good) {
         put(path, good);
         ASSERT_EQ(chmod(local(path).constData(), 0400), 0);
     },
     true, Written::No},
    {"ReadOnlyFolder",
     [](const QString &path, const QByteArray &good) {
         put(path, good);
         ASSERT_EQ(chmod(local(QFileInfo(path).path()).constData(), 0500), 0);
     },
     true, Written::No},
    {"FullDisk",
     [](const QString &path, const QByteArray &good) {
         put(path, good);
         limitFiles(8);
     },
     true, Written::No},
};

/// The file itself, links not followed.
std::tuple<ino_t, mode_t, off_t, time_t, long> stampOf(const QString &path)
{
    struct stat status = {};
    lstat(local(path).constData(), &status);
    return {status.st_ino, status.st_mode, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

struct DiskFaults : testing::TestWithParam<FileKind>
{};

TEST_P(DiskFaults, TheOldFileStaysOrTheNewOneIsWhole)
{
    const FileKind &kind = GetParam();
    std::signal(SIGXFSZ, SIG_IGN);
    const Unprivileged guard;
    for (const Fault &fault : faults) {
        SCOPED_TRACE(fault.name);
        const QTemporaryDir folder;
        clsMyApp app(folder.path());
        app.Skin = app.Path() + u"Blue.skn";
        const QString path = app.Path() + kind.file;
        fault.plant(path, kind.good);
        const auto before = stampOf(path);
        const QStringList entries = QDir(folder.path()).entryList(QDir::AllEntries | QDir::System);
        EXPECT_EQ(kind.read(app), fault.isRead ? u"5"_s : u""_s);
        if (kind.write) {
            const bool canWrite = fault.isWritten == Written::Yes ||
                                  (fault.isWritten == Written::ByThoseWhoNeedNotReadIt && !kind.isReadFirst);
            EXPECT_EQ(kind.write(app), canWrite);
            EXPECT_EQ(kind.read(app), canWrite ? u"77"_s : fault.isRead ? u"5"_s : u""_s);
            EXPECT_TRUE(canWrite || stampOf(path) == before) << "what is there is as it was";
        }
        limitFiles(RLIM_INFINITY);
        chmod(local(folder.path()).constData(), 0700);
        QStringList left = QDir(folder.path()).entryList(QDir::AllEntries | QDir::System);
        left.removeIf([&](const QString &entry) {
            return entries.contains(entry) || entry == kind.file || entry == kind.file + u".real";
        });
        EXPECT_EQ(left, QStringList()) << "nothing is left behind";
    }
}

INSTANTIATE_TEST_SUITE_P(App, DiskFaults, testing::ValuesIn(kinds),
                         [](const auto &instance) { return std::string(instance.param.name); });

/// Does it again and again in another thread, as long as it lives.
class Meanwhile
{
public:
    explicit Meanwhile(const std::function<void(int round)> &act)
        : m_thread([this, act] {
              for (int round = 0; !m_ends; ++round) {
                  act(round);
              }
          })
    {}
    ~Meanwhile()
    {
        m_ends = true;
        m_thread.join();
    }
    Meanwhile(const Meanwhile &) = delete;
    Meanwhile &operator=(const Meanwhile &) = delete;

private:
    std::atomic<bool> m_ends = false;
    std::thread m_thread;
};

TEST(ChangingFiles, AreReadAsTheyWereOrAsTheyAreAndNeverForEver)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a"_s);
    const QString texts[] = {QString(300'000, u'a'), QString(200'000, u'b')};
    ASSERT_TRUE(writeTextFile(path, texts[0]));
    {
        const Meanwhile replaced([&](int round) { (void)writeTextFile(path, texts[round % 2]); });
        for (int i = 0; i < 100; ++i) {
            const QString text = readTextFile(path).value_or(QString());
            ASSERT_TRUE(text == texts[0] || text == texts[1]) << text.size();
        }
    }
    const Meanwhile grows([&](int) {
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

    /// Puts something else in its place.
    void change(int round) const
    {
        QFile::remove(path);
        QDir().rmdir(path);
        switch (round % 4) {
        case 0:
            put(path, QByteArray(1000, 'x'));
            break;
        case 1:
            QDir().mkdir(path);
            break;
        case 2:
            writeSkinArchive({{u"skin.toml"_s, "[Defaults]\nBackColour = 6\n"}}, path);
            break;
        default:
            break; // it has gone
        }
    }

    QString path = folder.filePath(u"Blue.skn"_s);
    QStringList colours;
};

TEST_F(ChangingSkin, OneThatCannotBeHadLeavesTheOneBefore)
{
    put(path, kinds[7].good);
    take();
    text->setText(u"typed"_s);
    window.AddMessage(u"hello"_s, MessageKind::Normal);
    {
        const Meanwhile others([this](int round) { change(round); });
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
