// The emotions: whatever lies there as emotions.dat. Each is found by its place and by its name, in any
// letter case, and none holds more than a row and a line can.

#include "emotions/colEmotions.h"
#include "user_file.h"

namespace {

void checkText(const QString &text, qsizetype longest)
{
    require(text.size() <= longest && !text.contains(u'\n'));
}

void check(const colEmotions &emotions)
{
    for (qsizetype at = 1; at <= emotions.Count(); ++at) {
        const auto emotion = emotions.Item(at);
        require(emotion == emotions.Item(emotion->Emotion));
        require(emotion == emotions.Item(emotion->Emotion.toCaseFolded()));
        checkText(emotion->Emotion, 30);
        checkText(emotion->ToRoom, 255);
        checkText(emotion->ToUser, 255);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const QString file = scratchFile(QStringLiteral("emotions.dat"));
    putFile(file, Input(data, size).rest());
    colEmotions emotions;
    emotions.Add(QStringLiteral("Wave"), QStringLiteral("%U% waves at %O%"), QStringLiteral("%U% waves"));
    LoadEmotions(emotions, file.chopped(12));
    check(emotions);
    const qsizetype count = emotions.Count();
    LoadEmotions(emotions, file.chopped(12));
    require(emotions.Count() == count);
    return 0;
}
