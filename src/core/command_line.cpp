#include "core/command_line.h"

#include "core/numbers.h"

namespace {

std::optional<QStringView> textAfter(const QString &line, QStringView option)
{
    const qsizetype at = line.indexOf(option);
    if (at < 0) {
        return std::nullopt;
    }
    return QStringView(line).sliced(at + option.size());
}

} // namespace

std::optional<QString> CommandLine::portText() const
{
    const auto rest = textAfter(m_text, u"-port");
    const qsizetype end = rest ? rest->indexOf(u'~') : -1;
    if (end < 1) {
        return std::nullopt;
    }
    return rest->first(end).toString();
}

std::optional<qint32> CommandLine::roomId() const
{
    const auto rest = textAfter(m_text, u"-cid");
    return rest ? std::optional(leadingInt32(*rest)) : std::nullopt;
}

QString CommandLine::roomName() const
{
    const auto rest = textAfter(m_text, u"-cnm");
    if (!rest) {
        return {};
    }
    const qsizetype end = rest->indexOf(u'~');
    return (end < 0 ? *rest : rest->first(end)).toString();
}

bool CommandLine::showCategories() const
{
    return m_text.contains(u"-showcat");
}
