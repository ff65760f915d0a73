#include "soak/storm.h"

#include <climits>
#include <numeric>

namespace {

constexpr int fewestSteps = 60;
constexpr int mostSteps = 240;
constexpr int longestPause = 60; // milliseconds

} // namespace

Storm::Storm(quint32 seed, const QList<int> &weights)
    : m_random(seed), m_weights(weights), m_sum(std::accumulate(weights.begin(), weights.end(), 0))
{}

Life Storm::nextLife()
{
    Life life;
    life.number = m_random.bounded(INT_MAX);
    const int count = m_random.bounded(fewestSteps, mostSteps);
    for (int at = 0; at < count; ++at) {
        life.steps += nextStep();
    }
    return life;
}

Step Storm::nextStep()
{
    Step step;
    int left = m_random.bounded(m_sum);
    while (left >= m_weights[static_cast<qsizetype>(step.what)]) {
        left -= m_weights[static_cast<qsizetype>(step.what++)];
    }
    step.number = m_random.bounded(INT_MAX);
    step.pause = m_random.bounded(longestPause);
    return step;
}
