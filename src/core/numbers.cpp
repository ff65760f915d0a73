#include "core/numbers.h"

#include <limits>

qint32 leadingInt32(QStringView text)
{
    const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
    qsizetype at = 0;
    while (at < text.size() && text[at] == u' ') {
        ++at;
    }
    const bool negative = at < text.size() && text[at] == u'-';
    if (negative || (at < text.size() && text[at] == u'+')) {
        ++at;
    }
    using Limits = std::numeric_limits<qint32>;
    qint64 value = 0;
    for (; at < text.size() && isDigit(text[at]); ++at) {
        value = qMin(value * 10 + (text[at].unicode() - u'0'), -qint64(Limits::min()));
    }
    return static_cast<qint32>(negative ? -value : qMin(value, qint64(Limits::max())));
}
