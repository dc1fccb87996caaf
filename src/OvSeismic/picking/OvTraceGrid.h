#pragma once

#include "OvSeismic/OvSeismicExport.h"

#include <vector>

struct OvGather;
struct OvTraceChain;

/// The traces of a chain on one clock, ready for arithmetic: resampled to a common interval, from
/// the earliest first sample to the end of the search, about their own mean.
class OVSEISMIC_EXPORT OvTraceGrid
{
public:
    /// Takes over the traces of a chain. `every` samples are averaged into one point; lengthMs is
    /// the time after the first sample that is taken, 0 all of it. Points where a trace has no
    /// samples (lengthOf()) are 0. A trace that starts more than two record lengths from where most
    /// start, as damaged headers would have it, has none. Keeps its memory from gather to gather.
    void load(const OvGather& gather, const OvTraceChain& chain, int every, double lengthMs);

    /// The same rows after a filter that looks back only.
    void takeFiltered(const OvTraceGrid& from, const std::vector<float>& taps);

    /// Samples of a trace of a gather up to the last one that is not 0: what ends in zeros, as
    /// traces do that have fewer samples than the others, ended there.
    static int lengthOf(const OvGather& gather, int row);

    int rows() const { return m_rows; }
    int points() const { return m_points; }
    double stepMs() const { return m_stepMs; }
    /// Of the rows, as in OvTraceChain.
    const std::vector<int>& cables() const { return m_cables; }
    float* row(int index) { return m_values.data() + offset(index); }
    const float* row(int index) const { return m_values.data() + offset(index); }
    /// First point of a row with samples, and one behind the last.
    int first(int index) const { return m_spans[static_cast<std::size_t>(index)].first; }
    int last(int index) const { return m_spans[static_cast<std::size_t>(index)].last; }
    /// Largest distance of a point of a row from its mean.
    float largest(int index) const { return m_spans[static_cast<std::size_t>(index)].largest; }
    /// Time after the shot instant of a (fractional) point of a row, and its inverse.
    double timeMs(int index, double point) const
    {
        return m_spans[static_cast<std::size_t>(index)].startMs + point * m_stepMs;
    }
    double pointAt(int index, double timeMs) const
    {
        return (timeMs - m_spans[static_cast<std::size_t>(index)].startMs) / m_stepMs;
    }

private:
    struct Clock
    {
        double startMs = 0.0;
        double endMs = 0.0;
    };
    static Clock clockOf(const OvGather& gather, const OvTraceChain& chain);
    struct Span
    {
        double startMs = 0.0; // of point 0, which may lie before the first sample
        int first = 0;
        int last = 0;
        float largest = 0.0F;
    };
    std::size_t offset(int index) const
    {
        return static_cast<std::size_t>(index) * static_cast<std::size_t>(m_points);
    }
    void take(const float* samples, int count, int every, Span* span, float* out) const;

    int m_rows = 0;
    int m_points = 0;
    double m_stepMs = 0.0;
    std::vector<int> m_cables;
    std::vector<Span> m_spans;
    std::vector<float> m_values;
};
