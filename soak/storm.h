#pragma once

#include <QList>
#include <QRandomGenerator>

/// One thing that happens.
struct Step
{
    std::size_t what = 0; ///< the place in the table of steps
    int number = 0;       ///< not negative; what the step makes of it is its own business
    int pause = 0;        ///< milliseconds until the next one
};

/// One run of the client, from its start to its end.
struct Life
{
    QList<Step> steps;
    int number = 0; ///< not negative; for how it begins and how it ends
};

/// Deals what happens. It depends on the seed and on nothing else: a step that cannot be taken when its turn
/// comes has been dealt all the same.
class Storm
{
public:
    /// Each weight says how often its step comes, compared with the others.
    Storm(quint32 seed, const QList<int> &weights);

    [[nodiscard]] Life nextLife();

private:
    [[nodiscard]] Step nextStep();

    QRandomGenerator m_random;
    QList<int> m_weights;
    int m_sum;
};
