#include "OvGui/canvas/OvDrawnGather.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::size_t referenceSamples = 200000; // enough for a percentile of a whole gather

double gainFactor(const OvDisplayDefine& define)
{
    return (define.reversePolarity ? -1.0 : 1.0) * std::pow(10.0, define.gainDb / 20.0);
}

} // namespace

OvDrawnGather::OvDrawnGather(std::shared_ptr<const OvGather> gather, const OvDisplayDefine& define)
    : m_gather(std::move(gather))
{
    copySamples();
    const auto samples = static_cast<std::size_t>(sampleCount());
    if (samples == 0)
        return;
    const int window = static_cast<int>(std::lround(define.agcWindowMs / m_gather->intervalMs));
    if (define.agcWindowMs > 0)
        for (int row = 0; row < traceCount(); ++row)
            applyAgc(m_amplitudes.data() + static_cast<std::size_t>(row) * samples, sampleCount(),
                     window);
    const std::size_t step = define.scaling == OvDisplayDefine::PerGather
                                 ? std::max<std::size_t>(1, m_amplitudes.size())
                                 : samples;
    for (std::size_t first = 0; first + step <= m_amplitudes.size(); first += step)
        scaleBy(first, step, gainFactor(define));
}

void OvDrawnGather::copySamples()
{
    m_amplitudes.assign(
        static_cast<std::size_t>(traceCount()) * static_cast<std::size_t>(sampleCount()), 0.0F);
    const std::size_t count = std::min(m_amplitudes.size(), m_gather->samples.size());
    std::transform(m_gather->samples.begin(),
                   m_gather->samples.begin() + static_cast<std::ptrdiff_t>(count),
                   m_amplitudes.begin(), [](float x) { return std::isfinite(x) ? x : 0.0F; });
}

void OvDrawnGather::scaleBy(std::size_t first, std::size_t count, double gain)
{
    float* samples = m_amplitudes.data() + first;
    const double scale = static_cast<double>(reference(samples, count));
    if (scale <= 0.0)
        return;
    const double factor = gain / scale;
    constexpr double limit = 1e6; // far beyond any clip, and safe to turn into pixels
    for (std::size_t i = 0; i < count; ++i)
        samples[i] =
            static_cast<float>(std::clamp(static_cast<double>(samples[i]) * factor, -limit, limit));
}

float OvDrawnGather::reference(const float* samples, std::size_t count)
{
    std::vector<float> magnitudes;
    const std::size_t step = std::max<std::size_t>(1, count / referenceSamples);
    magnitudes.reserve(count / step + 1);
    for (std::size_t i = 0; i < count; i += step)
        if (samples[i] != 0.0F)
            magnitudes.push_back(std::abs(samples[i]));
    if (magnitudes.empty())
        return 0.0F;
    const auto place =
        magnitudes.begin() + static_cast<std::ptrdiff_t>(magnitudes.size() * 99 / 100);
    std::nth_element(magnitudes.begin(), place, magnitudes.end());
    return *place;
}

void OvDrawnGather::applyAgc(float* samples, int count, int window)
{
    std::vector<double> energy(static_cast<std::size_t>(count) + 1, 0.0); // running sum of squares
    for (int i = 0; i < count; ++i) {
        const double x = static_cast<double>(samples[i]);
        energy[static_cast<std::size_t>(i) + 1] = energy[static_cast<std::size_t>(i)] + x * x;
    }
    const int half = std::max(1, window) / 2;
    for (int i = 0; i < count; ++i) {
        const int begin = std::max(0, i - half);
        const int end = std::min(count, i + half + 1);
        const double sum =
            energy[static_cast<std::size_t>(end)] - energy[static_cast<std::size_t>(begin)];
        const double rms = std::sqrt(std::max(0.0, sum) / (end - begin));
        samples[i] = rms > 0.0 ? static_cast<float>(static_cast<double>(samples[i]) / rms) : 0.0F;
    }
}
