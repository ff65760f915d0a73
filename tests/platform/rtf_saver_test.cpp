#include "platform/rtf_saver.h"
#include "richtext/documents.h"
#include "richtext/rtf_reader.h"
#include "support/eventually.h"
#include "support/files.h"
#include "support/text.h"

#include <QProgressDialog>
#include <QTemporaryDir>
#include <QWidget>

#include <optional>

namespace {

/// Whether it was saved, and the turns of the event loop until then. Stops it at that turn; 0 for never.
std::pair<bool, int> save(const RichDocument &document, const QString &path, int stopAt = 0)
{
    QWidget window;
    RtfSaver saver(document.copy(0, document.length()), path, &window);
    std::optional<bool> result;
    QObject::connect(&saver, &RtfSaver::finished, [&](bool saved) { result = saved; });
    saver.start();
    int turns = 0;
    EXPECT_TRUE(eventually([&] {
        if (++turns == stopAt) {
            window.findChild<QProgressDialog *>()->cancel();
        }
        return result.has_value();
    }));
    return {result.value_or(false), turns};
}

TEST(RtfSaver, TheFileAppearsWholeOrNotAtAll)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"session.rtf"_s);
    const RichDocument document = documentOf(QStringList(60'000, u"b|a long evening with * and {braces}"_s));

    EXPECT_FALSE(save(document, path, 2).first);
    EXPECT_FALSE(QFile::exists(path)) << "it was stopped";
    EXPECT_FALSE(save(document, folder.filePath(u"none/session.rtf"_s)).first);

    const auto [isSaved, turns] = save(document, path);
    ASSERT_TRUE(isSaved);
    EXPECT_GT(turns, 4) << "others have had their turns meanwhile";
    RichDocument read;
    ASSERT_TRUE(readRtf(contentOf(path), read).isOk());
    EXPECT_EQ(read.plainText(), document.plainText());
}

} // namespace
