#pragma once

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// What the benches share: several runs, medians, and one line a figure.

/// The median; of an even number the mean of the two in the middle.
[[nodiscard]] double median(std::vector<double> values);

/// Seconds of wall time that the work takes, at its best of a few tries within one run.
[[nodiscard]] double secondsFor(const std::function<void()> &work);

/// Seconds of CPU that this process has used.
[[nodiscard]] double cpuSeconds();

/// Prints "figure NAME VALUE UNIT limit LIMIT pass|miss"; without a limit "limit - -".
void printFigure(const std::string &name, double value, const std::string &unit,
                 std::optional<double> limit = std::nullopt);

/// The same where the limit is the least that passes.
void printRate(const std::string &name, double value, const std::string &unit, double least);

/// Ends the bench with status 2, saying what is missing: without it there is nothing to measure.
inline void require(bool condition, const char *what)
{
    if (!condition) {
        std::fprintf(stderr, "bench: %s\n", what);
        std::exit(2);
    }
}
