#include "OvSeismic/picking/OvOnsetLattice.h"

#include "OvSeismic/picking/OvPickCourse.h"
#include "OvSeismic/picking/OvTraceChain.h"
#include "OvSeismic/picking/OvTraceGrid.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double blocksAPeriod = 6.0;
constexpr float standsOut = 0.5F; // what later blocks have to exceed
constexpr float leak = 0.015F;    // by which steady noise exceeds it, on average

int rounded(double value)
{
    return static_cast<int>(std::lround(value));
}

bool isSet(const std::atomic<bool>* cancel)
{
    return cancel && cancel->load();
}

} // namespace

OvChangeScore::Rule OvOnsetLattice::ruleFor(const Rows& rows, const OvOnsetLimits& limits,
                                            int row) const
{
    constexpr float forerunnerShare = 0.01F;
    const double length = limits.windowPoints > 0.0 ? limits.windowPoints : 1.2 * rows.period;
    OvChangeScore::Rule rule;
    rule.noise = rows.noise[row] * rows.noise[row];
    rule.forerunner = forerunnerShare;
    rule.ahead = rounded(rows.period / m_block);
    rule.window = std::max(rounded(length / m_block), 1);
    rule.first = (rows.grid->first(row) + rows.settle + m_block - 1) / m_block;
    rule.standsOut = standsOut;
    rule.leak = leak;
    return rule;
}

void OvOnsetLattice::build(const Rows& rows, const OvOnsetLimits& limits)
{
    // No path goes through a point that carries this score unless it must.
    constexpr float forbidden = -1000.0F;
    const int points = rows.grid->points();
    m_block = std::max(rounded(rows.period / blocksAPeriod), 1);
    m_scores.resize(rows.grid->rows(), std::max(points / m_block, 1));
    m_ratios.resize(m_scores.rows, m_scores.points);
    for (int row = 0; row < m_scores.rows && !isSet(limits.cancel); ++row) {
        const float* values = rows.values + static_cast<std::ptrdiff_t>(row) * points;
        m_ratios.row(row)[0] = 0.0F; // of rows shorter than a block
        OvChangeScore::energies(values, points, m_block, m_ratios.row(row));
        OvChangeScore::ratios(ruleFor(rows, limits, row), m_scores.points, m_ratios.row(row));
    }
    const int earliest = std::clamp(limits.earliest / m_block, 0, m_scores.points);
    for (int row = 0; row < m_scores.rows && !isSet(limits.cancel); ++row) {
        OvChangeScore::scores(ruleFor(rows, limits, row), m_scores.points, m_ratios.row(row),
                              m_scores.row(row));
        std::fill_n(m_scores.row(row), earliest, forbidden);
        holdWithin(limits, row);
        guideBy(limits, row);
    }
}

void OvOnsetLattice::holdWithin(const OvOnsetLimits& limits, int row)
{
    constexpr float unlikely = 6.0F;
    if (limits.earliestLikely.empty())
        return;
    const auto at = static_cast<std::size_t>(row);
    const auto block = static_cast<float>(m_block);
    const auto points = static_cast<float>(m_scores.points);
    // Blocks that begin before the one point or behind the other.
    const auto first =
        static_cast<int>(std::clamp(std::ceil(limits.earliestLikely[at] / block), 0.0F, points));
    const auto last = static_cast<int>(
        std::clamp(std::floor(limits.latestLikely[at] / block) + 1.0F, 0.0F, points));
    float* scores = m_scores.row(row);
    for (int k = 0; k < first; ++k)
        scores[k] -= unlikely;
    for (int k = std::max(last, first); k < m_scores.points; ++k)
        scores[k] -= unlikely;
}

void OvOnsetLattice::guideBy(const OvOnsetLimits& limits, int row)
{
    constexpr float most = 10.0F;
    if (limits.expected.empty())
        return;
    const float expected = limits.expected[static_cast<std::size_t>(row)];
    const float half = limits.halfWidths[static_cast<std::size_t>(row)];
    if (!std::isfinite(expected) || !(half > 0.0F))
        return;
    float* scores = m_scores.row(row);
    for (int k = 0; k < m_scores.points; ++k) {
        const float away = (static_cast<float>(k * m_block) - expected) / half;
        scores[k] -= std::min(2.0F * away * away, most);
    }
}

void OvOnsetLattice::addScores(int row, int point, int count, float* out) const
{
    const float* scores = m_scores.row(row);
    const float share = 1.0F / static_cast<float>(m_block);
    const int first = std::clamp(-point, 0, count);
    const int last = std::clamp((m_scores.points - 1) * m_block - point, first, count);
    for (int i = 0; i < first; ++i)
        out[i] += scores[0];
    int block = (point + first) / m_block;
    int beyond = (point + first) % m_block;
    for (int i = first; i < last; ++i) {
        const float part = share * static_cast<float>(beyond);
        out[i] += scores[block] + part * (scores[block + 1] - scores[block]);
        const bool isNext = ++beyond == m_block;
        block += isNext ? 1 : 0;
        beyond = isNext ? 0 : beyond;
    }
    for (int i = last; i < count; ++i)
        out[i] += scores[m_scores.points - 1];
}

std::vector<OvShiftPath::Step> OvOnsetLattice::steps(const OvTraceChain& chain,
                                                     const std::vector<double>& course) const
{
    const bool atCourse = !course.empty();
    const std::vector<double> slopes = OvPickCourse::slopes(course, chain);
    std::vector<OvShiftPath::Step> steps(chain.rows.size());
    for (std::size_t i = 0; i < steps.size(); ++i) {
        steps[i].expected = atCourse ? rounded(slopes[i] / m_block) : 0;
        const double free = std::max(chain.steps[i], 1.0);
        const auto penalty = static_cast<float>((atCourse ? 3.0 : 1.0) / free);
        const float back = atCourse ? penalty : 3.0F * penalty;
        steps[i].later = chain.away[i] < 0 ? back : penalty;
        steps[i].earlier = chain.away[i] > 0 ? back : penalty;
        if (chain.beginsCable(static_cast<int>(i)))
            steps[i] = OvShiftPath::anywhere;
    }
    return steps;
}
