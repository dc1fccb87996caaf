#include "OvSeismic/picking/OvPickGuide.h"

#include "OvSeismic/dsp/OvEnergyStep.h"
#include "OvSeismic/dsp/OvTraceSums.h"
#include "OvSeismic/picking/OvPathSearch.h"
#include "OvSeismic/picking/OvPickCourse.h"
#include "OvSeismic/picking/OvPickPlan.h"
#include "OvSeismic/picking/OvTraceChain.h"
#include "OvSeismic/picking/OvTraceGrid.h"
#include "OvSeismic/picking/OvWaveforms.h"
#include "OvSeismic/segy/OvGather.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

// A variance this many times that of the noise is as likely noise as signal.
constexpr double noiseFactor = 4.0;
constexpr double activityLimit = 1.5;
constexpr float heardPenalty = 0.5F;
// Forerunners below this share of the energy of the wave behind them are passed over.
constexpr double forerunnerShare = 0.005;
// No path goes through a point that carries this score unless it must.
constexpr float forbidden = -1000.0F;
// What a perfect likeness of neighbours is worth, in units of the step scores.
constexpr float likenessWeight = 1.4F;

double quantile(std::vector<float>* values, double share)
{
    if (values->empty())
        return 0.0;
    const auto rank = static_cast<std::ptrdiff_t>(share * static_cast<double>(values->size() - 1));
    std::nth_element(values->begin(), values->begin() + rank, values->end());
    return static_cast<double>((*values)[static_cast<std::size_t>(rank)]);
}

int rounded(double value)
{
    return static_cast<int>(std::lround(value));
}

// Judges the points of single traces.
class Scorer
{
public:
    Scorer(const OvGather& gather, const OvPickPlan& plan)
        : m_gather(gather)
        , m_plan(plan)
    {
        m_windows.before = plan.before;
        m_windows.after = plan.after;
        m_windows.limit = static_cast<float>(activityLimit);
        m_windows.heardPenalty = heardPenalty;
    }

    void load(int row)
    {
        m_row = row;
        m_trace.assign(m_gather.trace(row), OvTraceGrid::lengthOf(m_gather, row));
    }

    // guess is where the arrival is thought to be, or -1.
    void score(int guess, float* out)
    {
        const double step = m_plan.stepMs / m_gather.intervalMs;
        const double start = m_gather.sampleAt(m_row, m_plan.startMs);
        const double half = std::max(0.25 * m_plan.periodMs / m_gather.intervalMs, 1.0);
        OvEnergyStep::variances(m_trace, {start, step, m_plan.points}, half, &m_values);
        const double least = m_plan.leastAmplitude * m_trace.largest(0, m_trace.size());
        OvEnergyStep::Reference reference;
        reference.noise = noiseFactor * std::max(noiseBefore(guess), least * least);
        reference.share = forerunnerShare;
        reference.ahead = rounded(0.8 * m_plan.periodMs / m_plan.stepMs);
        reference.limit = activityLimit;
        OvEnergyStep::activity(reference, &m_values);
        OvEnergyStep::steps(m_values, m_windows, out);
        std::fill(out, out + m_plan.earliest, forbidden);
    }

    // The trace averaged about each point.
    void sample(float* out) const
    {
        const double half = 0.5 * m_plan.stepMs / m_gather.intervalMs;
        for (int point = 0; point < m_plan.points; ++point) {
            const double centre = m_gather.sampleAt(m_row, m_plan.timeMs(point));
            const int from = static_cast<int>(std::floor(centre - half + 0.5));
            const int to = static_cast<int>(std::floor(centre + half + 0.5));
            out[point] = static_cast<float>(m_trace.mean(from, std::max(to, from + 1)));
        }
    }

private:
    // The quieter half of what lies clear before the guess; without a guess, the quietest quarter
    // of what lies before the loudest point.
    double noiseBefore(int guess)
    {
        constexpr int leastPoints = 4;
        const int clear = guess - m_plan.after / 2;
        if (clear >= leastPoints) {
            const double level = quantileUntil(clear, 0.5);
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
    OvEnergyStep::Windows m_windows;
    OvTraceSums m_trace;
    int m_row = 0;
    std::vector<float> m_values;
    std::vector<float> m_quiet;
};

std::vector<OvPathStep> pathSteps(const OvTraceChain& chain, const OvPickPlan& plan,
                                  const std::vector<double>& previous)
{
    const std::vector<double> expected = OvPickCourse::slopes(previous, chain.cables);
    const double period = plan.periodMs / plan.stepMs;
    const double reach = (previous.empty() ? 1.0 : 0.4) * period;
    const double penalty = (previous.empty() ? 1.0 : 2.0) / period;
    std::vector<OvPathStep> steps(chain.rows.size());
    for (std::size_t i = 0; i < steps.size(); ++i) {
        steps[i].expected = expected.empty() ? 0 : rounded(expected[i] / plan.stepMs);
        steps[i].reach = std::max(rounded(reach * chain.steps[i]), 1);
        steps[i].penalty = static_cast<float>(penalty / std::max(chain.steps[i], 1.0));
        steps[i].away = chain.away[i];
        steps[i].backPenalty = static_cast<float>(0.5 / period);
        steps[i].anywhere = chain.beginsCable(static_cast<int>(i));
    }
    return steps;
}

std::vector<int> pointsOf(const std::vector<double>& timesMs, const OvPickPlan& plan)
{
    std::vector<int> points;
    points.reserve(timesMs.size());
    for (const double time : timesMs)
        points.push_back(plan.nearestPoint(time));
    return points;
}

} // namespace

std::vector<double> OvPickGuide::find(const OvGather& gather, const OvTraceChain& chain,
                                      const OvPickPlan& plan, const std::vector<double>& previous,
                                      const std::atomic<bool>* cancel)
{
    OvScoreLattice lattice;
    lattice.rows = chain.size();
    lattice.points = plan.points;
    lattice.scores.resize(static_cast<std::size_t>(lattice.rows) *
                          static_cast<std::size_t>(lattice.points));
    const double period = plan.periodMs / plan.stepMs;
    const std::vector<int> guesses = pointsOf(previous, plan);
    // Neighbours are compared only once it is known about where.
    OvWaveforms waves(previous.empty() ? 0 : lattice.rows, plan.points, rounded(0.5 * period),
                      rounded(1.2 * period));
    Scorer scorer(gather, plan);
    for (int i = 0; i < lattice.rows; ++i) {
        if (cancel && cancel->load())
            return {};
        const auto link = static_cast<std::size_t>(i);
        scorer.load(chain.rows[link]);
        scorer.score(guesses.empty() ? -1 : guesses[link], lattice.row(i));
        if (guesses.empty())
            continue;
        scorer.sample(waves.row(i));
        waves.measure(i);
    }
    OvMoveGains gains;
    if (!guesses.empty()) {
        waves.turnReversed(guesses, rounded(0.1 * period), chain.cables);
        gains = [&waves](int row, const OvPathStep& step, std::vector<float>* out) {
            waves.gains(row, step, likenessWeight, out);
        };
    }
    std::vector<double> guide;
    for (const int point : ovBestPath(lattice, pathSteps(chain, plan, previous), gains, cancel))
        guide.push_back(plan.timeMs(point));
    return guide;
}
