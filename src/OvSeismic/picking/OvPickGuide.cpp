#include "OvSeismic/picking/OvPickGuide.h"

#include "OvSeismic/dsp/OvEnergyStep.h"
#include "OvSeismic/dsp/OvTraceSums.h"
#include "OvSeismic/picking/OvPathSearch.h"
#include "OvSeismic/picking/OvPickPlan.h"
#include "OvSeismic/picking/OvTraceChain.h"
#include "OvSeismic/segy/OvGather.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace {

// A variance this many times that of the noise is as likely noise as signal.
constexpr double noiseFactor = 4.0;
constexpr double activityLimit = 2.0;
// Forerunners below this share of the energy of the wave behind them are passed over.
constexpr double forerunnerShare = 0.04;
// No path goes through a point that carries this score unless it must.
constexpr float forbidden = -1000.0F;

double quantile(std::vector<float>* values, double share)
{
    if (values->empty())
        return 0.0;
    const auto rank = static_cast<std::ptrdiff_t>(share * static_cast<double>(values->size() - 1));
    std::nth_element(values->begin(), values->begin() + rank, values->end());
    return static_cast<double>((*values)[static_cast<std::size_t>(rank)]);
}

class Scorer
{
public:
    Scorer(const OvGather& gather, const OvPickPlan& plan)
        : m_gather(gather)
        , m_plan(plan)
    {
    }

    // guess is where the arrival is thought to be, or -1.
    void score(int row, int guess, float* out)
    {
        m_trace.assign(m_gather.trace(row), m_gather.sampleCount);
        const double step = m_plan.stepMs / m_gather.intervalMs;
        const OvEnergyStep::Grid grid{m_gather.sampleAt(row, m_plan.startMs), step, m_plan.points};
        const double half = std::max(0.25 * m_plan.periodMs / m_gather.intervalMs, 1.0);
        OvEnergyStep::variances(m_trace, grid, half, &m_values);
        const double least = m_plan.leastAmplitude * m_trace.largest(0, m_trace.size());
        const double noise = std::max(noiseBefore(guess), least * least);
        const OvEnergyStep::Reference reference{noiseFactor * noise, forerunnerShare, m_plan.after};
        OvEnergyStep::activity(reference, activityLimit, &m_values);
        OvEnergyStep::steps(m_values, m_plan.before, m_plan.after,
                            static_cast<float>(-activityLimit), out);
        std::fill(out, out + m_plan.earliest, forbidden);
    }

private:
    // The quieter half of what lies clear before the guess; without a guess, the quietest quarter
    // of what lies before the loudest point.
    double noiseBefore(int guess)
    {
        constexpr int leastPoints = 4;
        const int margin = m_plan.after / 2;
        if (guess - margin >= leastPoints) {
            const double level = quantileUntil(guess - margin, 0.5);
            if (m_quiet.size() >= leastPoints)
                return level;
        }
        const auto loudest = std::max_element(m_values.begin(), m_values.end()) - m_values.begin();
        return quantileUntil(std::max(static_cast<int>(loudest), leastPoints), 0.25);
    }

    double quantileUntil(int end, double share)
    {
        m_quiet.clear();
        const int last = std::min(end, static_cast<int>(m_values.size()));
        std::copy_if(m_values.begin(), m_values.begin() + last, std::back_inserter(m_quiet),
                     [](float value) { return value >= 0.0F; });
        return quantile(&m_quiet, share);
    }

    const OvGather& m_gather;
    const OvPickPlan& m_plan;
    OvTraceSums m_trace;
    std::vector<float> m_values;
    std::vector<float> m_quiet;
};

std::vector<OvPathStep> pathSteps(const OvTraceChain& chain, const OvPickPlan& plan,
                                  const std::vector<double>& previous)
{
    const std::vector<double> expected = OvPickGuide::slopes(previous);
    const double pointsAPeriod = plan.periodMs / plan.stepMs;
    const double reach = previous.empty() ? pointsAPeriod : 0.5 * pointsAPeriod;
    const double penalty = (previous.empty() ? 1.0 : 3.0) / pointsAPeriod;
    std::vector<OvPathStep> steps;
    for (std::size_t i = 0; i < chain.rows.size(); ++i) {
        OvPathStep step;
        step.expected =
            expected.empty() ? 0 : static_cast<int>(std::lround(expected[i] / plan.stepMs));
        step.reach = std::max(static_cast<int>(std::lround(reach * chain.steps[i])), 1);
        step.penalty = static_cast<float>(penalty / std::max(chain.steps[i], 1.0));
        steps.push_back(step);
    }
    return steps;
}

} // namespace

std::vector<double> OvPickGuide::slopes(const std::vector<double>& guide)
{
    constexpr int mostReach = 4;
    const int count = static_cast<int>(guide.size());
    std::vector<double> slopes(guide.size(), 0.0);
    for (int i = 1; i < count; ++i) {
        std::array<double, mostReach> around{};
        for (int reach = 1; reach <= mostReach; ++reach) {
            const auto left = static_cast<std::size_t>(std::max(i - reach, 0));
            const auto right = static_cast<std::size_t>(std::min(i + reach - 1, count - 1));
            around[static_cast<std::size_t>(reach - 1)] =
                (guide[right] - guide[left]) / static_cast<double>(right - left);
        }
        std::sort(around.begin(), around.end());
        slopes[static_cast<std::size_t>(i)] = 0.5 * (around[1] + around[2]);
    }
    return slopes;
}

std::vector<double> OvPickGuide::find(const OvGather& gather, const OvTraceChain& chain,
                                      const OvPickPlan& plan, const std::vector<double>& previous,
                                      const std::atomic<bool>* cancel)
{
    OvScoreLattice lattice;
    lattice.rows = chain.size();
    lattice.points = plan.points;
    lattice.scores.resize(static_cast<std::size_t>(lattice.rows) *
                          static_cast<std::size_t>(lattice.points));
    Scorer scorer(gather, plan);
    for (int i = 0; i < lattice.rows; ++i) {
        if (cancel && cancel->load())
            return {};
        const auto link = static_cast<std::size_t>(i);
        const int guess = previous.empty() ? -1 : plan.nearestPoint(previous[link]);
        scorer.score(chain.rows[link], guess, lattice.row(i));
    }
    std::vector<double> guide;
    for (const int point : ovBestPath(lattice, pathSteps(chain, plan, previous), cancel))
        guide.push_back(plan.timeMs(point));
    return guide;
}
