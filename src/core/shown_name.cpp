#include "core/shown_name.h"

namespace {

constexpr char16_t lastAscii = 0x7F;

constexpr bool isJoiner(char16_t c)
{
    return c == 0x200C || c == 0x200D;
}

constexpr bool isInvisible(char16_t c)
{
    return (c >= 0x200B && c <= 0x200F) || (c >= 0x202A && c <= 0x202E) || (c >= 0x2060 && c <= 0x2069) ||
           c == 0x061C || c == 0x180E || c == 0xFEFF;
}

bool joins(const QString &name, qsizetype at)
{
    const auto isForeign = [&](qsizetype place) {
        return place >= 0 && place < name.size() && name[place].unicode() > lastAscii &&
               !isInvisible(name[place].unicode());
    };
    return isJoiner(name[at].unicode()) && isForeign(at - 1) && isForeign(at + 1);
}

} // namespace

QString shownName(const QString &name)
{
    QString shown;
    shown.reserve(name.size());
    for (qsizetype at = 0; at < name.size(); ++at) {
        if (!isInvisible(name[at].unicode()) || joins(name, at)) {
            shown += name[at];
        }
    }
    return shown;
}
