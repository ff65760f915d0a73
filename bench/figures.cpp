#include "bench/figures.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <limits>

double median(std::vector<double> values)
{
    std::ranges::sort(values);
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

double secondsFor(const std::function<void()> &work)
{
    using Clock = std::chrono::steady_clock;
    double best = std::numeric_limits<double>::max();
    for (int attempt = 0; attempt < 3; ++attempt) {
        const auto start = Clock::now();
        work();
        best = std::min(best, std::chrono::duration<double>(Clock::now() - start).count());
    }
    return best;
}

double cpuSeconds()
{
    timespec used{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
    return static_cast<double>(used.tv_sec) + static_cast<double>(used.tv_nsec) * 1e-9;
}

void printFigure(const std::string &name, double value, const std::string &unit, std::optional<double> limit)
{
    if (limit) {
        std::printf("figure %s %.3f %s limit %g %s\n", name.c_str(), value, unit.c_str(), *limit,
                    value <= *limit ? "pass" : "miss");
    } else {
        std::printf("figure %s %.3f %s limit - -\n", name.c_str(), value, unit.c_str());
    }
    std::fflush(stdout);
}

void printRate(const std::string &name, double value, const std::string &unit, double least)
{
    std::printf("figure %s %.3f %s limit %g %s\n", name.c_str(), value, unit.c_str(), least,
                value >= least ? "pass" : "miss");
}
