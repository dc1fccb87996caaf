#include "OvSeismic/segy/OvSegyCensus.h"

#include "OvSeismic/segy/OvSegyWords.h"

#include <segyio/segy.h>

#include <cmath>
#include <cstdlib>
#include <limits>

namespace {

constexpr int deadTrace = 2;
constexpr float hugeSample = 1e25F;

bool isPowerOfTen(int scalar)
{
    const int size = std::abs(scalar);
    return size <= 1 || size == 10 || size == 100 || size == 1000 || size == 10000;
}

} // namespace

void OvSegyCensus::add(qint64 trace, const char* header, const float* samples, int sampleCount)
{
    ++m_traces;
    const OvSegyTraceWords words = OvSegyTraceWords::decode(header, m_order);
    addWords(trace, words);
    addStated(trace, header, sampleCount);
    addSamples(trace, samples, sampleCount, words.traceId == deadTrace);
    m_keys.add(words.fieldRecord, words.channel);
}

void OvSegyCensus::addWords(qint64 trace, const OvSegyTraceWords& words)
{
    fieldRecords.see(trace, words.fieldRecord != 0);
    channels.see(trace, words.channel != 0);
    cdps.see(trace, words.cdp != 0);
    offsets.see(trace, words.offset != 0);
    sourcePositions.see(trace, words.sourceX != 0 || words.sourceY != 0);
    receiverPositions.see(trace, words.receiverX != 0 || words.receiverY != 0);
    elevations.see(trace, words.sourceElevation != 0 || words.receiverElevation != 0);
    oddScalars.see(trace,
                   !isPowerOfTen(words.coordinateScalar) || !isPowerOfTen(words.elevationScalar));
    markedDead.see(trace, words.traceId == deadTrace);
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
