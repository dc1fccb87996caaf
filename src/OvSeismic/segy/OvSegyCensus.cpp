#include "OvSeismic/segy/OvSegyCensus.h"

#include "OvSeismic/segy/OvSegyWords.h"

#include <segyio/segy.h>

#include <cmath>
#include <cstdlib>
#include <limits>

namespace {

constexpr float hugeSample = 1e25F;

bool isPowerOfTen(double scalar)
{
    const double size = std::abs(scalar);
    return size <= 1.0 || size == 10.0 || size == 100.0 || size == 1000.0 || size == 10000.0;
}

} // namespace

void OvSegyCensus::add(qint64 trace, const Header& header, const float* samples, int sampleCount)
{
    static const OvTraceHeaderMapping standard;
    ++m_traces;
    const OvTraceHeaderMapping& mapping = header.size >= m_extent ? m_mapping : standard;
    const OvTraceHeader words = mapping.decode(header.bytes, m_order, trace, 1.0);
    addWords(trace, words);
    addScalars(trace, mapping, header.bytes);
    addStated(trace, header.bytes, sampleCount);
    addSamples(trace, samples, sampleCount, words.isDead());
    m_keys.add(words.fieldRecord, words.channel);
}

void OvSegyCensus::addWords(qint64 trace, const OvTraceHeader& words)
{
    // Not a number is nothing, either.
    const auto isThere = [](double value) { return std::abs(value) > 0.0; };
    fieldRecords.see(trace, words.fieldRecord != 0);
    channels.see(trace, words.channel != 0);
    cdps.see(trace, words.cdp != 0);
    offsets.see(trace, isThere(double(words.offset)));
    sourcePositions.see(trace, isThere(words.sourceX) || isThere(words.sourceY));
    receiverPositions.see(trace, isThere(words.receiverX) || isThere(words.receiverY));
    elevations.see(trace, isThere(double(words.sourceElevation)) ||
                              isThere(double(words.receiverElevation)));
    markedDead.see(trace, words.isDead());
}

void OvSegyCensus::addScalars(qint64 trace, const OvTraceHeaderMapping& mapping, const char* header)
{
    bool odd = false;
    for (const auto quantity :
         {OvTraceHeaderMapping::CoordinateScalar, OvTraceHeaderMapping::ElevationScalar})
        odd = odd || !isPowerOfTen(mapping.word(quantity).value(header, m_order));
    oddScalars.see(trace, odd);
}

void OvSegyCensus::addStated(qint64 trace, const char* header, int sampleCount)
{
    const OvSegyWords words(header, 1, m_order);
    const int samples = words.uint16(SEGY_TR_SAMPLE_COUNT);
    const int interval = words.uint16(SEGY_TR_SAMPLE_INTER);
    // More samples than the word can hold stand elsewhere.
    const bool fits = sampleCount <= std::numeric_limits<quint16>::max();
    otherCount.see(trace, fits && samples != 0 && samples != sampleCount);
    otherInterval.see(trace, interval != 0 && std::abs(interval - m_intervalUs) >= 1.0);
}

void OvSegyCensus::addSamples(qint64 trace, const float* samples, int sampleCount, bool dead)
{
    qint64 odd = 0;
    float largest = 0.0F;
    qint64 changes = 0;
    for (int i = 0; i < sampleCount; ++i) {
        const float size = std::abs(samples[i]);
        odd += !(size <= std::numeric_limits<float>::max());
        largest = size > largest ? size : largest;
        changes += samples[i] != samples[0];
    }
    notFinite.see(trace, odd > 0);
    notFiniteSample.see(trace, odd);
    huge.see(trace, odd == 0 && largest > hugeSample);
    silent.see(trace, !dead && changes == 0);
}
