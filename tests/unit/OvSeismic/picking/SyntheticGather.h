#pragma once

#include "OvSeismic/segy/OvGather.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

/// A gather with one arrival of a known time on every trace, for tests of picking.
struct SyntheticGather
{
    OvGather gather;
    std::vector<double> onsetsMs;

    /// Traces at offsets of 10 m, 20 m and so on, 2 ms a sample, the first sample delayMs after the
    /// shot; the arrival comes 30 ms and 0.5 ms a metre after it and has 25 Hz.
    explicit SyntheticGather(int traces, int samples = 400, float delayMs = 0.0F)
    {
        gather.sampleCount = samples;
        gather.intervalMs = 2.0;
        gather.samples.assign(static_cast<std::size_t>(traces) * static_cast<std::size_t>(samples),
                              0.0F);
        for (int row = 0; row < traces; ++row) {
            OvTraceHeader header;
            header.channel = row + 1;
            header.offset = 10.0F * static_cast<float>(row + 1);
            header.delayMs = delayMs;
            header.traceId = 1;
            gather.headers.push_back(header);
            onsetsMs.push_back(30.0 + 0.5 * static_cast<double>(header.offset));
            add(row, onsetsMs.back(), 1.0, 25.0);
        }
    }

    /// Adds t exp(-a t) sin(2 pi f t), of about the given amplitude, from a time on.
    void add(int row, double onsetMs, double amplitude, double frequencyHz)
    {
        float* trace = gather.trace(row);
        for (int i = 0; i < gather.sampleCount; ++i) {
            const double t = (gather.timeMs(row, i) - onsetMs) / 1000.0;
            if (t > 0.0)
                trace[i] += static_cast<float>(amplitude * frequencyHz * 3.6 * t *
                                               std::exp(-1.3 * frequencyHz * t) *
                                               std::sin(6.283185307 * frequencyHz * t));
        }
    }

    /// Normal noise of an RMS, the same on every run.
    void addNoise(double rms, unsigned seed = 1)
    {
        std::mt19937 engine(seed);
        for (float& sample : gather.samples) {
            double sum = -6.0;
            for (int i = 0; i < 12; ++i)
                sum += static_cast<double>(engine()) / 4294967296.0;
            sample += static_cast<float>(rms * sum);
        }
    }

    void scale(int row, float factor)
    {
        float* trace = gather.trace(row);
        std::transform(trace, trace + gather.sampleCount, trace,
                       [factor](float value) { return value * factor; });
    }

    void silence(int row) { scale(row, 0.0F); }
};
