#include "messenger/clean_text.h"

#include <algorithm>
#include <iterator>

namespace messenger {

namespace {

template <typename Keep>
QString filtered(QStringView text, Keep keep)
{
    QString clean;
    clean.reserve(text.size());
    std::ranges::copy_if(text, std::back_inserter(clean), keep);
    return clean;
}

bool isControl(QChar c)
{
    return c < u' ';
}

bool mayBeInText(QChar c)
{
    constexpr QStringView allowed = u"\x01\x02\x03\t\n\r";
    return !isControl(c) || allowed.contains(c);
}

} // namespace

QString cleanName(QStringView name)
{
    return filtered(name, [](QChar c) { return !isControl(c); }).left(maximumNameLength);
}

QString cleanText(QStringView text)
{
    return filtered(text, mayBeInText);
}

} // namespace messenger
