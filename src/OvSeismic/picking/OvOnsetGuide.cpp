#include "OvSeismic/picking/OvOnsetGuide.h"

#include "OvSeismic/dsp/OvAutoregression.h"
#include "OvSeismic/dsp/OvChangeScore.h"
#include "OvSeismic/dsp/OvFir.h"
#include "OvSeismic/picking/OvPickCourse.h"
#include "OvSeismic/picking/OvTraceChain.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int passes = 3;
constexpr double blocksAPeriod = 6.0;
constexpr std::size_t noiseLags = 9;
constexpr float forerunnerShare = 0.01F;

int rounded(double value)
{
    return static_cast<int>(std::lround(value));
}

bool isSet(const std::atomic<bool>* cancel)
{
    return cancel && cancel->load();
}

float median(std::vector<float>* values)
{
    const auto middle = values->begin() + static_cast<std::ptrdiff_t>(values->size() / 2);
    std::nth_element(values->begin(), middle, values->end());
    return *middle;
}

// The value that a share of chi-square variables over their degrees of freedom stays below (Wilson,
// E., Hilferty, M., 1931, The distribution of chi-square, Proc. Natl. Acad. Sci. 17, 684-688).
double chiSquareShare(double share, double freedom)
{
    // Normal quantile by the logistic approximation.
    const double normal = std::log(share / (1.0 - share)) / 1.702;
    const double spread = 2.0 / (9.0 * std::max(freedom, 1.0));
    const double root = std::max(1.0 - spread + normal * std::sqrt(spread), 0.3);
    return root * root * root;
}

// Independent samples in one sample of a process.
double freedomOfCorrelation(const std::vector<double>& correlation)
{
    double sum = correlation[0] * correlation[0];
    for (std::size_t lag = 1; lag < correlation.size(); ++lag)
        sum += 2.0 * correlation[lag] * correlation[lag];
    return correlation[0] * correlation[0] / sum;
}

// The same of white noise after a filter.
double freedomOf(const std::vector<float>& taps)
{
    std::vector<double> correlation(taps.size(), 0.0);
    OvAutoregression::addCorrelation(taps.data(), static_cast<int>(taps.size()), 1.0, &correlation);
    return freedomOfCorrelation(correlation);
}

} // namespace

// Six times the lag at which the autocorrelation of whitened rows, the noise's taken off, has
// fallen to a half: that of a cosine has after a sixth of its period.
void OvOnsetGuide::measurePeriod(const OvTraceGrid& grid, bool atCourse)
{
    constexpr int mostRows = 24;
    constexpr double longest = 120.0;
    constexpr double shortest = 8.0;
    const int lags = static_cast<int>(longest / 6.0) + 2;
    std::vector<double> signal(static_cast<std::size_t>(lags), 0.0);
    std::vector<double> one(signal.size());
    std::vector<float> whitened(static_cast<std::size_t>(m_points));
    const int every = std::max(1, grid.rows() / mostRows);
    for (int row = 0; row < grid.rows(); row += every) {
        const auto at = static_cast<std::size_t>(row);
        int from = grid.first(row);
        int to = grid.last(row);
        if (atCourse) {
            from = std::clamp(rounded(m_times[at] - 0.2 * m_period), from, to);
            to = std::min(rounded(m_times[at] + 1.3 * m_period), to);
        }
        const Quiet& quiet = m_quiet[at];
        if (to - from < 4 || quiet.size() < 4)
            continue;
        OvFir::apply(m_whitener, 0, grid.row(row) + grid.first(row),
                     grid.last(row) - grid.first(row), whitened.data() + grid.first(row));
        const float* still = whitened.data() + quiet.from;
        const double noise = static_cast<double>(OvFir::dot(still, still, quiet.size())) /
                             quiet.size() / (atCourse ? 1.0 : m_quietShare);
        std::fill(one.begin(), one.end(), 0.0);
        OvAutoregression::addCorrelation(whitened.data() + from, to - from, 1.0, &one);
        const double power = one[0] - noise * (to - from);
        if (!(power > 0.2 * one[0]))
            continue;
        one[0] = power;
        for (std::size_t lag = 0; lag < signal.size(); ++lag)
            signal[lag] += one[lag] / power;
    }
    std::size_t lag = 1;
    while (lag < signal.size() && signal[lag] > 0.5 * signal[0])
        ++lag;
    if (!(signal[0] > 0.0))
        return;
    const double above = signal[lag - 1] - 0.5 * signal[0];
    const double fall = lag < signal.size() ? signal[lag - 1] - signal[lag] : 1.0;
    const double found = 6.0 * (static_cast<double>(lag) - 1.0 + above / std::max(fall, 1e-12));
    const double least = atCourse ? std::max(0.5 * shortest, m_period / 3.0) : shortest;
    const double most = atCourse ? m_period * 1.5 : longest;
    m_period = std::clamp(found, least, most);
}

OvOnsetGuide::Quiet OvOnsetGuide::quietest(const OvTraceGrid& grid, int row)
{
    const int length = std::max(rounded(1.5 * m_period), 40);
    const int first = grid.first(row);
    const float* values = grid.row(row);
    const float largest = grid.largest(row);
    const int loudest = static_cast<int>(
        std::find_if(values + first, values + std::max(grid.last(row), first + 1),
                     [largest](float value) { return std::abs(value) >= largest; }) -
        values);
    std::vector<std::pair<float, int>> stretches;
    for (int from = first; from + length <= loudest; from += length) {
        const float energy = OvFir::dot(values + from, values + from, length);
        if (energy > 0.0F)
            stretches.emplace_back(energy, from);
    }
    if (stretches.empty())
        return {};
    const auto rank = stretches.begin() + static_cast<std::ptrdiff_t>(stretches.size() / 8);
    std::nth_element(stretches.begin(), rank, stretches.end());
    return {rank->second, rank->second + length};
}

void OvOnsetGuide::findQuiet(const OvTraceGrid& grid, bool atCourse)
{
    m_quiet.assign(static_cast<std::size_t>(grid.rows()), {});
    int known = 0;
    for (int row = 0; row < grid.rows() && !isSet(m_cancel); ++row) {
        Quiet& quiet = m_quiet[static_cast<std::size_t>(row)];
        if (!atCourse) {
            quiet = quietest(grid, row);
            continue;
        }
        const int to = rounded(m_times[static_cast<std::size_t>(row)] - 0.4 * m_period);
        const int from = std::max(grid.first(row), to - rounded(12.0 * m_period));
        if (to - from >= std::max(rounded(m_period), 6))
            quiet = {from, to};
        known += quiet.size() > 0 ? 1 : 0;
    }
    if (atCourse && 4 * known < grid.rows())
        findQuiet(grid, false);
}

void OvOnsetGuide::whiten(const OvTraceGrid& grid)
{
    constexpr double white = 1e-4;
    OvAutoregression::Covariance covariance(static_cast<int>(noiseLags) - 1);
    for (int row = 0; row < grid.rows() && !isSet(m_cancel); ++row) {
        const Quiet& quiet = m_quiet[static_cast<std::size_t>(row)];
        if (quiet.size() < 1)
            continue;
        const float* values = grid.row(row) + quiet.from;
        const int length = std::min(quiet.size(), std::max(rounded(4.0 * m_period), 64));
        const auto energy = static_cast<double>(OvFir::dot(values, values, length));
        if (energy > 0.0)
            covariance.add(values, length, 1.0 / energy);
    }
    m_whitener = covariance.whitener(white);
    // A filter that takes a lot away says little before it has seen its whole length.
    float size = 0.0F;
    for (const float tap : m_whitener)
        size += std::abs(tap);
    constexpr float strong = 1.4F;
    m_settle = size > strong ? static_cast<int>(m_whitener.size()) : 0;
}

void OvOnsetGuide::filter(const OvTraceGrid& grid)
{
    const int half = std::max(rounded(m_period / 6.0), 1);
    const std::vector<float> smoother = OvFir::triangle(half);
    const std::vector<float> taps = OvFir::joined(m_whitener, smoother);
    m_freedom = freedomOf(smoother);
    m_filtered.resize(static_cast<std::size_t>(grid.rows()) * static_cast<std::size_t>(m_points));
    for (int row = 0; row < grid.rows() && !isSet(m_cancel); ++row) {
        float* out =
            m_filtered.data() + static_cast<std::size_t>(row) * static_cast<std::size_t>(m_points);
        const int first = grid.first(row);
        const int last = grid.last(row);
        std::fill(out, out + first, 0.0F);
        std::fill(out + last, out + m_points, 0.0F);
        if (last > first)
            OvFir::apply(taps, half - 1, grid.row(row) + first, last - first, out + first);
    }
}

// How much quieter the stretches of quietest() are than noise is on average.
void OvOnsetGuide::measureQuietShare(const OvTraceGrid& grid)
{
    std::vector<double> correlation(noiseLags, 0.0);
    int rows = 0;
    double length = 0.0;
    for (int row = 0; row < grid.rows() && !isSet(m_cancel); ++row) {
        const Quiet& quiet = m_quiet[static_cast<std::size_t>(row)];
        if (quiet.size() < 1)
            continue;
        const float* values = grid.row(row) + quiet.from;
        const auto energy = static_cast<double>(OvFir::dot(values, values, quiet.size()));
        OvAutoregression::addCorrelation(values, quiet.size(), 1.0 / energy, &correlation);
        length += quiet.size();
        ++rows;
    }
    m_quietShare =
        rows > 0 ? chiSquareShare(0.13, freedomOfCorrelation(correlation) * length / rows) : 1.0;
}

// Mean energy of noise, told from the quieter stretches of a row.
float OvOnsetGuide::quietEnergy(int row, int from, int to)
{
    const int length = std::max(rounded(1.5 * m_period), 6);
    std::vector<float> stretches;
    for (int at = from; at + length <= to; at += length) {
        const float* values = filtered(row) + at;
        const float energy = OvFir::dot(values, values, length) / static_cast<float>(length);
        if (energy > 0.0F)
            stretches.push_back(energy);
    }
    if (stretches.empty())
        return -1.0F;
    const auto rank = stretches.begin() + static_cast<std::ptrdiff_t>(stretches.size() / 8);
    std::nth_element(stretches.begin(), rank, stretches.end());
    const double share = (static_cast<double>(stretches.size() / 8) + 0.7) /
                         (static_cast<double>(stretches.size()) + 0.4);
    return *rank / static_cast<float>(chiSquareShare(share, m_freedom * length));
}

void OvOnsetGuide::measureNoise(const OvTraceGrid& grid, bool atCourse, double leastAmplitude)
{
    const int block = std::max(rounded(0.7 * m_period), 4);
    m_noise.assign(static_cast<std::size_t>(grid.rows()), -1.0F);
    std::vector<float> blocks;
    for (int row = 0; row < grid.rows() && !isSet(m_cancel); ++row) {
        const auto at = static_cast<std::size_t>(row);
        const Quiet& quiet = m_quiet[at];
        if (quiet.size() < block)
            continue;
        const float* values = filtered(row) + quiet.from;
        float energy = 0.0F;
        if (atCourse) {
            // Without what bursts into it.
            blocks.resize(static_cast<std::size_t>(quiet.size() / block));
            OvChangeScore::energies(values, quiet.size(), block, blocks.data());
            std::vector<float> sorted = blocks;
            const float limit = 3.0F * median(&sorted);
            float sum = 0.0F;
            int used = 0;
            for (const float value : blocks) {
                if (value <= limit) {
                    sum += value;
                    ++used;
                }
            }
            energy = sum / static_cast<float>(std::max(used, 1));
        } else {
            energy = quietEnergy(row, grid.first(row), grid.last(row));
        }
        m_noise[at] = std::sqrt(std::max(energy, 0.0F));
    }
    // Traces without a quiet stretch of their own take over their neighbours' noise.
    float last = -1.0F;
    for (float& noise : m_noise)
        noise = last = noise >= 0.0F ? noise : last;
    for (auto noise = m_noise.rbegin(); noise != m_noise.rend(); ++noise)
        *noise = last = *noise >= 0.0F ? *noise : std::max(last, 0.0F);
    for (int row = 0; row < grid.rows() && !isSet(m_cancel); ++row) {
        float& noise = m_noise[static_cast<std::size_t>(row)];
        noise = std::max(noise, static_cast<float>(leastAmplitude) * grid.largest(row));
    }
}

OvChangeScore::Rule OvOnsetGuide::ruleFor(const OvTraceGrid& grid, const Options& options,
                                          int row) const
{
    const double length = options.windowPoints > 0.0 ? options.windowPoints : 1.2 * m_period;
    const float noise = m_noise[static_cast<std::size_t>(row)];
    OvChangeScore::Rule rule;
    rule.noise = noise * noise;
    rule.forerunner = forerunnerShare;
    rule.ahead = rounded(m_period / m_block);
    rule.window = std::max(rounded(length / m_block), 1);
    rule.first = (grid.first(row) + m_settle + m_block - 1) / m_block;
    return rule;
}

// What the noise leaks: ahead of the course, the median over the rows; without one, what the
// quieter stretches of all rows do.
float OvOnsetGuide::leakOf(const OvTraceGrid& grid) const
{
    constexpr float least = 0.03F;
    constexpr float most = 0.6F;
    constexpr float margin = 1.5F;
    constexpr float quieter = 0.3F;
    constexpr int enough = 8;
    const int length = 16;
    std::vector<float> leaks;
    for (int row = 0; row < m_lattice.rows; ++row) {
        const float* ratios = m_energies.data() + static_cast<std::size_t>(row) *
                                                      static_cast<std::size_t>(m_lattice.points);
        const int first = grid.first(row) / m_block;
        if (m_times.empty()) {
            for (int k = first; k + length <= grid.last(row) / m_block; k += length)
                leaks.push_back(OvChangeScore::excess(ratios, m_standsOut, k, k + length));
            continue;
        }
        const int clear =
            rounded((m_times[static_cast<std::size_t>(row)] - 0.3 * m_period) / m_block);
        if (clear - first >= enough)
            leaks.push_back(OvChangeScore::excess(ratios, m_standsOut, first,
                                                  std::min(clear, m_lattice.points)));
    }
    if (leaks.empty())
        return least;
    const auto rank =
        leaks.begin() + static_cast<std::ptrdiff_t>((m_times.empty() ? quieter : 0.5F) *
                                                    static_cast<float>(leaks.size()));
    std::nth_element(leaks.begin(), rank, leaks.end());
    return std::clamp(margin * *rank, least, most);
}

void OvOnsetGuide::score(const OvTraceGrid& grid, const Options& options)
{
    m_block = std::max(rounded(m_period / blocksAPeriod), 1);
    m_lattice.rows = grid.rows();
    m_lattice.points = std::max(m_points / m_block, 1);
    m_lattice.scores.resize(static_cast<std::size_t>(m_lattice.rows) *
                            static_cast<std::size_t>(m_lattice.points));
    m_energies.assign(m_lattice.scores.size(), 0.0F);
    const auto ratios = [this](int row) {
        return m_energies.data() +
               static_cast<std::size_t>(row) * static_cast<std::size_t>(m_lattice.points);
    };
    for (int row = 0; row < grid.rows() && !isSet(m_cancel); ++row) {
        OvChangeScore::energies(filtered(row), m_points, m_block, ratios(row));
        OvChangeScore::ratios(ruleFor(grid, options, row), m_lattice.points, ratios(row));
    }
    m_standsOut = 0.5F;
    const float leak = leakOf(grid);
    for (int row = 0; row < grid.rows() && !isSet(m_cancel); ++row) {
        OvChangeScore::Rule rule = ruleFor(grid, options, row);
        rule.leak = leak;
        rule.standsOut = m_standsOut;
        OvChangeScore::scores(rule, m_lattice.points, ratios(row), m_lattice.row(row));
        std::fill_n(m_lattice.row(row), std::clamp(options.earliest / m_block, 0, m_lattice.points),
                    -1000.0F);
        holdWithin(options, row);
    }
    guideBy(grid, options);
}

void OvOnsetGuide::holdWithin(const Options& options, int row)
{
    constexpr float unlikely = 6.0F;
    if (options.earliestLikely.empty())
        return;
    const float least = options.earliestLikely[static_cast<std::size_t>(row)];
    const float most = options.latestLikely[static_cast<std::size_t>(row)];
    float* scores = m_lattice.row(row);
    for (int k = 0; k < m_lattice.points; ++k) {
        const auto point = static_cast<float>(k * m_block);
        scores[k] -= point < least || point > most ? unlikely : 0.0F;
    }
}

void OvOnsetGuide::guideBy(const OvTraceGrid& grid, const Options& options)
{
    constexpr float most = 10.0F;
    if (options.expected.empty())
        return;
    for (int row = 0; row < grid.rows() && !isSet(m_cancel); ++row) {
        const float expected = options.expected[static_cast<std::size_t>(row)];
        const float half = options.halfWidths[static_cast<std::size_t>(row)];
        if (!std::isfinite(expected) || !(half > 0.0F))
            continue;
        float* scores = m_lattice.row(row);
        for (int k = 0; k < m_lattice.points; ++k) {
            const float away = (static_cast<float>(k * m_block) - expected) / half;
            scores[k] -= std::min(2.0F * away * away, most);
        }
    }
}

void OvOnsetGuide::follow(const OvTraceChain& chain, bool atCourse)
{
    std::vector<double> slopes;
    if (atCourse)
        slopes = OvPickCourse::slopes(m_times, chain.cables);
    m_steps.resize(chain.rows.size());
    for (std::size_t i = 0; i < m_steps.size(); ++i) {
        m_steps[i].expected = atCourse ? rounded(slopes[i] / m_block) : 0;
        const double free = std::max(chain.steps[i], 1.0);
        const auto penalty = static_cast<float>((atCourse ? 3.0 : 1.0) / free);
        const float back = atCourse ? penalty : 3.0F * penalty;
        m_steps[i].later = chain.away[i] < 0 ? back : penalty;
        m_steps[i].earlier = chain.away[i] > 0 ? back : penalty;
        if (chain.beginsCable(static_cast<int>(i)))
            m_steps[i] = OvShiftPath::anywhere;
    }
    const std::vector<int>& path = m_path.find(m_lattice, m_steps);
    m_times.resize(path.size());
    std::transform(path.begin(), path.end(), m_times.begin(),
                   [this](int block) { return static_cast<double>(block * m_block); });
}

double OvOnsetGuide::scout(const OvTraceGrid& grid, const OvTraceChain& chain,
                           const std::atomic<bool>* cancel)
{
    m_cancel = cancel;
    m_points = grid.points();
    m_period = 16.0;
    m_times.clear();
    for (const bool atCourse : {false, true}) {
        findQuiet(grid, atCourse);
        measureQuietShare(grid);
        whiten(grid);
        measurePeriod(grid, atCourse);
        filter(grid);
        measureNoise(grid, atCourse, 0.001);
        score(grid, {});
        follow(chain, atCourse);
    }
    return m_period;
}

bool OvOnsetGuide::find(const OvTraceGrid& grid, const OvTraceChain& chain, const Options& options)
{
    m_cancel = options.cancel;
    m_points = grid.points();
    m_period = 16.0;
    m_times.clear();
    for (int pass = 0; pass < passes; ++pass) {
        if (isSet(options.cancel))
            return false;
        const bool atCourse = pass > 0;
        findQuiet(grid, atCourse);
        measureQuietShare(grid);
        whiten(grid);
        if (pass < 2)
            measurePeriod(grid, atCourse);
        if (pass == 0)
            findQuiet(grid, atCourse);
        filter(grid);
        measureNoise(grid, atCourse, options.leastAmplitude);
        score(grid, options);
        follow(chain, atCourse);
    }
    return !isSet(options.cancel);
}
