#include "tools/skin/nearest_name.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace {

constexpr qsizetype longestCompared = 64;

/// How many mistakes lead from one to the other.
qsizetype mistakes(const QString &a, const QString &b)
{
    using Row = std::vector<qsizetype>;
    const auto at = [](qsizetype index) { return static_cast<std::size_t>(index); };
    std::vector<Row> cost(at(a.size() + 1), Row(at(b.size() + 1)));
    for (qsizetype i = 0; i <= a.size(); ++i) {
        for (qsizetype j = 0; j <= b.size(); ++j) {
            qsizetype &best = cost[at(i)][at(j)];
            if (i == 0 || j == 0) {
                best = i + j;
                continue;
            }
            const qsizetype changed = a[i - 1] == b[j - 1] ? 0 : 1;
            best = std::min({cost[at(i - 1)][at(j)] + 1, cost[at(i)][at(j - 1)] + 1,
                             cost[at(i - 1)][at(j - 1)] + changed});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
                best = std::min(best, cost[at(i - 2)][at(j - 2)] + 1);
            }
        }
    }
    return cost[at(a.size())][at(b.size())];
}

} // namespace

QString nearestName(const QString &name, const QStringList &candidates)
{
    const QString wanted = name.left(longestCompared).toCaseFolded();
    QString nearest;
    qsizetype fewest = std::max(wanted.size() / 3, qsizetype(2)) + 1;
    for (const QString &candidate : candidates) {
        if (std::abs(candidate.size() - wanted.size()) >= fewest) {
            continue;
        }
        const qsizetype count = mistakes(wanted, candidate.toCaseFolded());
        if (count < fewest) {
            fewest = count;
            nearest = candidate;
        }
    }
    return nearest;
}
