#include "OvSeismic/picking/OvOnsetSearch.h"

#include "OvSeismic/dsp/OvOnset.h"
#include "OvSeismic/picking/OvPickParameters.h"
#include "OvSeismic/picking/OvPickPlan.h"
#include "OvSeismic/picking/OvTraceChain.h"
#include "OvSeismic/segy/OvGather.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace {

using OvOnsetSearch::Arrival;

constexpr double none = std::numeric_limits<double>::quiet_NaN();

class Search
{
public:
    Search(const OvGather& gather, const OvPickPlan& plan, bool positive)
        : m_gather(gather)
        , m_plan(plan)
        , m_positive(positive)
        , m_period(plan.periodMs / gather.intervalMs)
    {
    }

    // The onset of the first swing within halfMs of aroundMs, or NaN.
    double onset(int row, double aroundMs, double halfMs)
    {
        m_trace.assign(m_gather.trace(row), m_gather.sampleCount);
        const double centre = m_gather.sampleAt(row, aroundMs);
        const double half = halfMs / m_gather.intervalMs;
        const int peak =
            firstSwing(row, floored(centre - half), floored(centre + half + 0.25 * m_period));
        if (peak < 0)
            return none;
        const OvOnset::Window window{floored(peak - 1.5 * m_period), peak + 1,
                                     floored(peak - m_period), peak};
        const double floor = 1e-6 * m_trace.variance(window.from, window.to);
        const double sample = OvOnset::aic(m_trace, window, floor);
        if (sample < 0.0)
            return none;
        return m_gather.timeMs(row, OvOnsetSearch::skipWeakSwing(m_gather.trace(row),
                                                                 m_gather.sampleCount, sample,
                                                                 m_period, m_positive));
    }

    // The extremum of the first swing in [from, to) that stands out, or -1.
    int firstSwing(int row, int from, int to)
    {
        const int first = std::clamp(from, 0, m_gather.sampleCount);
        const int last = std::clamp(to, first, m_gather.sampleCount);
        const int length = floored(m_period) + 1;
        const float* samples = m_gather.trace(row);
        const auto rest = static_cast<float>(
            std::accumulate(samples + std::max(first - length, 0), samples + first, 0.0) /
            std::max(std::min(first, length), 1));
        const double noise = std::sqrt(m_trace.variance(first - length, first));
        float largest = 0.0F;
        for (int i = first; i < last; ++i)
            largest = std::max(largest, std::abs(samples[i] - rest));
        const float threshold =
            std::clamp(static_cast<float>(2.5 * noise), 0.25F * largest, 0.8F * largest);
        int at = first;
        while (at < last && std::abs(samples[at] - rest) < threshold)
            ++at;
        if (at == last)
            return -1;
        while (at + 1 < m_gather.sampleCount &&
               std::abs(samples[at + 1] - rest) > std::abs(samples[at] - rest))
            ++at;
        return at;
    }

    void measure(int row, Arrival* arrival)
    {
        m_trace.assign(m_gather.trace(row), m_gather.sampleCount);
        const int onset = floored(m_gather.sampleAt(row, arrival->timeMs) + 0.5);
        const int length = std::max(floored(m_period), 2);
        const double after = m_trace.variance(onset, onset + length);
        const double before = m_trace.variance(onset - 2 * length, onset);
        const double largest = m_trace.largest(0, m_trace.size());
        const double floor = 1e-12 * largest * largest;
        arrival->ratio = std::sqrt(after / std::max(before, floor));
        arrival->amplitude = m_trace.largest(onset, onset + length) / largest;
    }

private:
    static int floored(double value) { return static_cast<int>(std::floor(value)); }

    const OvGather& m_gather;
    const OvPickPlan& m_plan;
    bool m_positive;
    double m_period;
    OvTraceSums m_trace;
};

// Median distance of the onsets of the traces around a link from the guide.
double neighboursMs(const std::vector<double>& distances, std::size_t link)
{
    constexpr std::size_t reach = 4;
    const std::size_t first = link < reach ? 0 : link - reach;
    const std::size_t last = std::min(link + reach + 1, distances.size());
    std::vector<double> around;
    for (std::size_t i = first; i < last; ++i) {
        if (i != link && std::isfinite(distances[i]))
            around.push_back(distances[i]);
    }
    if (around.empty())
        return 0.0;
    const auto middle = around.begin() + static_cast<std::ptrdiff_t>(around.size() / 2);
    std::nth_element(around.begin(), middle, around.end());
    return *middle;
}

} // namespace

double OvOnsetSearch::skipWeakSwing(const float* samples, int count, double onset, double period,
                                    bool positive)
{
    const int first = std::clamp(static_cast<int>(std::floor(onset)), 0, count - 1);
    const int last = std::min(first + static_cast<int>(period) + 1, count);
    const float rest = samples[first];
    const float sign = positive ? 1.0F : -1.0F;
    float wrong = 0.0F;
    int crossing = first;
    while (crossing < last && sign * (samples[crossing] - rest) <= 0.0F)
        wrong = std::max(wrong, -sign * (samples[crossing++] - rest));
    float right = 0.0F;
    for (int i = crossing; i < last && sign * (samples[i] - rest) > 0.0F; ++i)
        right = std::max(right, sign * (samples[i] - rest));
    const bool weak = wrong > 0.0F && right > 3.0F * wrong;
    return weak ? std::max(onset, static_cast<double>(crossing - 1)) : onset;
}

std::vector<OvOnsetSearch::Arrival>
OvOnsetSearch::find(const OvGather& gather, const OvTraceChain& chain, const OvPickPlan& plan,
                    const std::vector<double>& guide, const OvPickParameters& parameters,
                    const std::atomic<bool>* cancel)
{
    Search search(gather, plan, parameters.polarity == OvPickParameters::Polarity::Positive);
    std::vector<double> distances;
    for (std::size_t link = 0; link < guide.size(); ++link) {
        if (cancel && cancel->load())
            return {};
        const double guideMs = guide[link];
        distances.push_back(search.onset(chain.rows[link], guideMs, plan.tuningMs) - guideMs);
    }
    std::vector<Arrival> arrivals(guide.size());
    for (std::size_t link = 0; link < guide.size(); ++link) {
        if (cancel && cancel->load())
            return {};
        const double guideMs = guide[link];
        const double pointed = neighboursMs(distances, link);
        const double allowed = 0.35 * plan.periodMs;
        double distance = distances[link];
        if (!(std::abs(distance - pointed) <= allowed))
            distance = search.onset(chain.rows[link], guideMs + pointed, allowed) - guideMs;
        Arrival& arrival = arrivals[link];
        arrival.timeMs = guideMs + distance;
        arrival.strayMs = std::abs(distance - pointed);
        if (std::isfinite(arrival.timeMs))
            search.measure(chain.rows[link], &arrival);
    }
    return arrivals;
}
