#pragma once

#include "OvSeismic/segy/OvTraceHeaderMapping.h"

#include <functional>
#include <unordered_set>

class OvSegyFile;

/// What a mapping finds in the trace headers of a file: the range of each word, and what speaks
/// against its being the right one. Bounded in memory for files of any size; works in any thread.
class OVSEISMIC_EXPORT OvHeaderSurvey
{
public:
    using Quantity = OvTraceHeaderMapping::Quantity;
    using Remark = OvTraceHeaderMapping::Problem;
    /// False stops. Called at most 20 times a second, and at the end.
    using Progress = std::function<bool(qint64 done, qint64 total)>;

    /// The values of one word as they stand in the file, without scalars.
    struct Word
    {
        qint64 count = 0;
        qint64 zeros = 0;
        qint64 invalid = 0; ///< infinite or not a number; not in minimum and maximum
        qint64 tiny = 0;    ///< not zero, but smaller than any measured length: whole numbers that
                            ///< are read as floating-point ones look so
        qint64 oddScalars = 0; ///< not what the standard allows as a scalar
        double minimum = 0.0;
        double maximum = 0.0;
        std::unordered_set<double> values; ///< different ones, at most mostValues

        bool isConstant() const { return count > 0 && values.size() == 1 && invalid == 0; }
        bool isZero() const { return count > 0 && zeros == count; }
        bool hasMoreValues() const { return values.size() >= mostValues; }
    };
    static constexpr std::size_t mostValues = 65536;

    /// Reads traces of a file that has space for mapping.extent() bytes of header: all, or when
    /// there are more than mostTraces, as many in groups of neighbours spread over the file. After
    /// a failure or a stop nothing is known.
    OvStatus run(const OvSegyFile& file, const OvTraceHeaderMapping& mapping, qint64 mostTraces,
                 const Progress& progress = {});

    /// Traces that were read; 0 before run().
    qint64 traceCount() const { return m_traces; }
    /// Whether these are all of the file.
    bool isWhole() const { return m_whole; }
    const Word& word(Quantity quantity) const { return m_words[quantity]; }
    /// What is odd, as warnings, in the order of the quantities.
    QVector<Remark> remarks() const;

private:
    void add(const char* header, OvByteOrder order);
    void add(Quantity quantity, double value);

    OvTraceHeaderMapping m_mapping;
    std::array<Word, OvTraceHeaderMapping::quantityCount> m_words;
    double m_largestCoordinate = 0.0; // scalar applied
    double m_largestOffset = 0.0;
    qint64 m_traces = 0;
    bool m_whole = false;
};
