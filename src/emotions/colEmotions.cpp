#include "emotions/colEmotions.h"

#include "platform/text_file.h"

#include <QList>

namespace {

constexpr qsizetype longestName = 30;
constexpr qsizetype longestText = 255;
constexpr qsizetype linesPerRecord = 3;

/// Lines end with CR LF; a file that another editor saved may have LF alone. What follows the last end is a
/// line only when it is not empty.
QList<QStringView> linesOf(QStringView text)
{
    QList<QStringView> lines = text.split(u'\n');
    if (lines.last().isEmpty()) {
        lines.removeLast();
    }
    for (QStringView &line : lines) {
        line = line.endsWith(u'\r') ? line.chopped(1) : line;
    }
    return lines;
}

} // namespace

colEmotions::Pointer colEmotions::Add(const QString &emotion, const QString &toUser, const QString &toRoom)
{
    return m_records.insert(emotion.toCaseFolded(),
                            std::make_shared<clsEmotions>(clsEmotions{emotion, toRoom, toUser}));
}

void LoadEmotions(colEmotions &emotions, const QString &applicationFolder)
{
    const auto text = readTextFile(applicationFolder + u"emotions.dat");
    if (!text) {
        return;
    }
    emotions.Clear();
    const QList<QStringView> lines = linesOf(*text);
    for (qsizetype at = 0; at + linesPerRecord <= lines.size(); at += linesPerRecord) {
        const QStringView name = lines[at];
        const QStringView toRoom = lines[at + 1];
        const QStringView toUser = lines[at + 2];
        if (name.size() > longestName || toRoom.size() > longestText || toUser.size() > longestText) {
            continue;
        }
        if (emotions.Add(name.toString(), toUser.toString(), toRoom.toString()) == nullptr) {
            return;
        }
    }
}
