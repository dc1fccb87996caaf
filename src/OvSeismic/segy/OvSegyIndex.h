#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/OvStatus.h"
#include "OvSeismic/segy/OvGather.h"
#include "OvSeismic/segy/OvGatherOrder.h"
#include "OvSeismic/segy/OvTraceHeaderMapping.h"

#include <functional>
#include <memory>
#include <vector>

class OvSegyFile;

/// The header index of one SEG-Y file: the header words of every trace, and the gathers they form.
///
/// Unless regrouped() a gather is all traces of one field record, in file order; gathers are
/// ordered by the position of their first trace. A file whose field records hold one trace each (a
/// walkaway, say) is one gather of all its traces. Immutable once built, so a const index may be
/// shared between threads.
///
/// Takes some 10 to 30 bytes a trace. Gathers are counted from 0.
class OVSEISMIC_EXPORT OvSegyIndex
{
public:
    /// Called from the thread that runs build(), at most 20 times a second, with traces done and in
    /// all. Returning false cancels.
    using Progress = std::function<bool(qint64 done, qint64 total)>;

    OvSegyIndex();
    ~OvSegyIndex();
    OvSegyIndex(OvSegyIndex&&) noexcept;
    OvSegyIndex& operator=(OvSegyIndex&&) noexcept;

    /// One pass over all trace headers. On failure or cancel the index stays empty.
    OvStatus build(const OvSegyFile& file, const Progress& progress = {});
    OvStatus build(const OvSegyFile& file, const OvTraceHeaderMapping& mapping,
                   const Progress& progress = {});
    /// Only the first gather of the file, for showing something before build() has ended. Reads no
    /// more than maxTraces headers; a longer gather is cut there.
    OvStatus buildFirstGather(const OvSegyFile& file, qint64 maxTraces = 4096);
    OvStatus buildFirstGather(const OvSegyFile& file, const OvTraceHeaderMapping& mapping,
                              qint64 maxTraces = 4096);

    /// The same traces in other gathers. Shares the header words with this index; takes up to some
    /// 0.1 us a trace, on any thread.
    OvSegyIndex regrouped(const OvGatherOrder& order) const;
    const OvGatherOrder& order() const;
    const OvTraceHeaderMapping& mapping() const;

    qint64 traceCount() const;
    int gatherCount() const;
    /// Of the gather's first trace in the file.
    qint32 fieldRecord(int gather) const;
    int gatherTraceCount(int gather) const;
    /// The gather of a field record, or -1; also -1 where gathers have another key.
    int gatherOfFieldRecord(qint32 fieldRecord) const;
    /// The gather that a trace belongs to, or -1.
    int gatherOfTrace(qint64 trace) const;
    /// The traces of a gather in row order, counted from 0 in the file.
    std::vector<qint64> gatherTraces(int gather) const;

    /// The key as a number: field record, CDP number, lower end of the offset bin in m (NaN for
    /// unknown offsets), number of the source or receiver position, from 1. NaN without the gather.
    double keyValue(int gather) const;
    /// The gather of a key, for an offset the one whose bin holds it; -1 when there is none.
    int gatherOfKey(double value) const;
    /// The key for users, with its unit, translated: "12", "25 - 50 m", "3: 1200.5, 350".
    QString gatherLabel(int gather) const;

    /// Ordinal, field record and headers of a gather, without samples; no headers when there is no
    /// such gather.
    OvGather gatherHeaders(const OvSegyFile& file, int gather) const;
    /// Headers and samples.
    OvStatus readGather(const OvSegyFile& file, int gather, OvGather* out) const;
    /// Tells the system that a gather is likely to be read soon.
    void prefetchGather(const OvSegyFile& file, int gather) const;

    /// Smallest and largest absolute offset, m; NaN when no trace has one.
    float minimumOffset() const;
    float maximumOffset() const;
    /// Translated sentences about the geometry: no offsets, one gather of all records, and such.
    QStringList warnings() const;
    /// Bytes of memory that the index takes; what it shares with others counts in each.
    qint64 memoryBytes() const;

private:
    friend class OvSegyIndexCache;
    struct Private;
    std::unique_ptr<Private> d;
};
