#include "OvSeismic/dsp/OvFirstSwing.h"

#include "OvSeismic/dsp/OvExtent.h"
#include "OvSeismic/dsp/OvTraceView.h"

#include <algorithm>
#include <cmath>

namespace {

using OvFirstSwing::Sign;
using OvFirstSwing::Swing;

double deflection(double value, Sign sign)
{
    if (sign == Sign::Either)
        return std::abs(value);
    return sign == Sign::Positive ? value : -value;
}

// Deflections of a trace from its level of rest.
class Deflections
{
public:
    Deflections(const float* samples, double rest, Sign sign)
        : m_samples(samples)
        , m_rest(rest)
        , m_sign(sign)
    {
    }

    double operator()(int sample) const
    {
        return deflection(static_cast<double>(m_samples[sample]) - m_rest, m_sign);
    }

private:
    const float* m_samples;
    double m_rest;
    Sign m_sign;
};

// Largest deflection to either side.
double largestOf(const float* samples, double rest, int first, int last)
{
    if (first >= last)
        return 0.0;
    const OvExtent extent = OvExtent::of(samples + first, last - first);
    return std::max(static_cast<double>(extent.most) - rest,
                    rest - static_cast<double>(extent.least));
}

// Extremum of the lobe of the other sign that ends where the swing begins; -1 without one from
// first on.
int lobeBefore(const float* samples, const Swing& swing, int first)
{
    const bool up = static_cast<double>(samples[swing.peak]) > swing.rest;
    const Deflections other(samples, swing.rest, up ? Sign::Negative : Sign::Positive);
    int at = swing.peak;
    while (at >= first && other(at) < 0.0)
        --at;
    int peak = -1;
    double highest = 0.0;
    for (; at >= first && other(at) >= 0.0; --at) {
        if (other(at) > highest) {
            highest = other(at);
            peak = at;
        }
    }
    return peak;
}

// Goes back over at most a cycle: what lies farther ahead is another wave.
void goToFirstLobe(const float* samples, int first, double noise, double share, Swing* swing)
{
    constexpr int mostLobes = 2;
    constexpr double clearOfNoise = 2.0;
    for (int lobe = 0; lobe < mostLobes; ++lobe) {
        const Deflections high(samples, swing->rest, Sign::Either);
        const int before = lobeBefore(samples, *swing, first);
        const double least = std::max(share * high(swing->peak), clearOfNoise * noise);
        if (before < 0 || high(before) < least)
            return;
        swing->peak = before;
    }
}

// Fractional sample ahead of the peak at which the flank crosses a share of the height.
double crossing(const float* samples, const Swing& swing, double share)
{
    const double scale = 1.0 / (static_cast<double>(samples[swing.peak]) - swing.rest);
    const auto level = [&](int i) {
        return (static_cast<double>(samples[i]) - swing.rest) * scale;
    };
    int at = swing.peak;
    while (at > 0 && level(at) > share)
        --at;
    if (at == swing.peak || level(at) > share)
        return at;
    return at + (share - level(at)) / (level(at + 1) - level(at));
}

} // namespace

OvFirstSwing::Swing OvFirstSwing::find(const OvTraceView& trace, const Window& window, Sign sign)
{
    constexpr double clearOfNoise = 2.0;
    constexpr double mostShare = 0.8;
    const float* samples = trace.samples();
    const int first = std::clamp(window.first, 0, trace.size());
    const int last = std::clamp(window.last, first, trace.size());
    const int quiet = std::max(first - window.quiet, 0);
    Swing swing;
    swing.rest = trace.mean(quiet, first);
    const double largest = largestOf(samples, swing.rest, first, last);
    const double noise = std::sqrt(trace.variance(quiet, first));
    const double least =
        std::min(std::max(clearOfNoise * noise, window.share * largest), mostShare * largest);
    const Deflections high(samples, swing.rest, sign);
    int at = first;
    while (at < last && high(at) < least)
        ++at;
    if (at >= last || !(largest > 0.0))
        return swing;
    while (at + 1 < trace.size() && high(at + 1) > high(at))
        ++at;
    swing.peak = at;
    if (sign == Sign::Either)
        goToFirstLobe(samples, first, noise, window.lobeShare, &swing);
    return swing;
}

double OvFirstSwing::onset(const float* samples, const Swing& swing)
{
    constexpr double low = 0.3;
    constexpr double high = 0.6;
    const double lower = crossing(samples, swing, low);
    const double upper = crossing(samples, swing, high);
    return lower - (upper - lower) * low / (high - low);
}
