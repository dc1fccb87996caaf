#include "OvSeismic/picking/OvGuidedPicker.h"

#include "OvSeismic/dsp/OvDominantPeriod.h"
#include "OvSeismic/picking/OvOnsetSearch.h"
#include "OvSeismic/picking/OvPickGuide.h"
#include "OvSeismic/picking/OvPickPlan.h"
#include "OvSeismic/picking/OvTraceChain.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

namespace {

double median(std::vector<double>* values)
{
    const auto middle = values->begin() + static_cast<std::ptrdiff_t>(values->size() / 2);
    std::nth_element(values->begin(), middle, values->end());
    return *middle;
}

// Median dominant period of the chain, ms: of whole traces, or of the lengthMs behind a guide.
double periodMs(const OvGather& gather, const OvTraceChain& chain,
                const std::vector<double>& fromMs, double lengthMs)
{
    std::vector<double> periods;
    for (std::size_t link = 0; link < chain.rows.size(); ++link) {
        const int row = chain.rows[link];
        const int first = static_cast<int>(std::max(gather.sampleAt(row, fromMs[link]), 0.0));
        const int last = static_cast<int>(gather.sampleAt(row, fromMs[link] + lengthMs)) + 1;
        const double period =
            ovDominantPeriod(gather.trace(row), first, std::min(last, gather.sampleCount));
        if (period > 0.0)
            periods.push_back(period * gather.intervalMs);
    }
    const double shortest = 4.0 * gather.intervalMs;
    const double longest = std::max(0.125 * gather.sampleCount * gather.intervalMs, shortest);
    return periods.empty() ? shortest : std::clamp(median(&periods), shortest, longest);
}

double wholeTracePeriodMs(const OvGather& gather, const OvTraceChain& chain,
                          const OvPickParameters& parameters)
{
    const double whole = gather.sampleCount * gather.intervalMs;
    const double length = parameters.processingLengthMs > 0
                              ? std::min(whole, static_cast<double>(parameters.processingLengthMs))
                              : whole;
    std::vector<double> starts;
    for (const int row : chain.rows)
        starts.push_back(gather.timeMs(row, 0.0));
    return periodMs(gather, chain, starts, length);
}

double arrivalPeriodMs(const OvGather& gather, const OvTraceChain& chain, const OvPickPlan& plan,
                       const std::vector<double>& guide)
{
    const double period = periodMs(gather, chain, guide, 2.5 * plan.periodMs);
    return std::clamp(period, plan.periodMs / 3.0, plan.periodMs * 3.0);
}

bool inOffsetRange(const OvTraceHeader& header, const OvPickParameters& parameters)
{
    if (!std::isfinite(header.offset))
        return true;
    const double offset = std::abs(static_cast<double>(header.offset));
    return offset >= parameters.minimumOffsetM &&
           (parameters.maximumOffsetM == 0 || offset <= parameters.maximumOffsetM);
}

float confidence(const OvOnsetSearch::Arrival& arrival, double period)
{
    if (!std::isfinite(arrival.timeMs))
        return 0.0F;
    const double loudness = std::clamp(std::log10(std::max(arrival.ratio, 1.0)), 0.0, 1.0);
    const double stray = 2.0 * arrival.strayMs / period;
    return static_cast<float>(loudness * std::exp(-stray * stray));
}

std::vector<OvOnsetSearch::Arrival> findArrivals(const OvGather& gather, const OvTraceChain& chain,
                                                 OvPickPlan* plan,
                                                 const OvPickParameters& parameters,
                                                 const std::atomic<bool>* cancel)
{
    *plan =
        OvPickPlan::of(gather, chain, wholeTracePeriodMs(gather, chain, parameters), parameters);
    std::vector<double> guide = OvPickGuide::find(gather, chain, *plan, {}, cancel);
    if (guide.empty())
        return {};
    *plan = OvPickPlan::of(gather, chain, arrivalPeriodMs(gather, chain, *plan, guide), parameters);
    guide = OvPickGuide::find(gather, chain, *plan, guide, cancel);
    return OvOnsetSearch::find(gather, chain, *plan, guide, parameters, cancel);
}

// Whether the best tenth of a gather's arrivals amounts to nothing: a misfire, or noise alone.
bool isSilent(std::vector<float> confidences)
{
    constexpr float leastOfBest = 0.25F;
    const auto rank = static_cast<std::ptrdiff_t>(confidences.size() / 10);
    std::nth_element(confidences.begin(), confidences.begin() + rank, confidences.end(),
                     std::greater<float>());
    return confidences[static_cast<std::size_t>(rank)] < leastOfBest;
}

bool isAccepted(const OvOnsetSearch::Arrival& arrival, float confidence,
                const OvPickParameters& parameters)
{
    constexpr float least = 0.05F;
    return std::isfinite(arrival.timeMs) && confidence >= least &&
           arrival.ratio >= parameters.snrThreshold &&
           arrival.amplitude >= parameters.amplitudeThreshold;
}

} // namespace

OvPickResult OvGuidedPicker::pick(const OvGather& gather, const OvPickSettings& settings,
                                  const std::atomic<bool>* cancel) const
{
    const OvPickParameters& parameters = settings.parameters;
    OvPickResult result;
    result.timesMs.assign(gather.headers.size(), std::numeric_limits<float>::quiet_NaN());
    result.confidences.assign(gather.headers.size(), 0.0F);
    const OvTraceChain chain = OvTraceChain::of(gather);
    if (chain.rows.empty() || !(gather.intervalMs > 0.0))
        return result;
    OvPickPlan plan;
    const auto arrivals = findArrivals(gather, chain, &plan, parameters, cancel);
    if (arrivals.empty())
        return {};
    std::vector<float> confidences;
    confidences.reserve(arrivals.size());
    for (const auto& arrival : arrivals)
        confidences.push_back(confidence(arrival, plan.periodMs));
    if (isSilent(confidences))
        return result;
    for (std::size_t link = 0; link < arrivals.size(); ++link) {
        const auto row = static_cast<std::size_t>(chain.rows[link]);
        if (!isAccepted(arrivals[link], confidences[link], parameters) ||
            !inOffsetRange(gather.headers[row], parameters))
            continue;
        result.timesMs[row] = static_cast<float>(arrivals[link].timeMs);
        result.confidences[row] = confidences[link];
    }
    return result;
}

std::unique_ptr<OvPicker> OvPicker::create()
{
    return std::make_unique<OvGuidedPicker>();
}
