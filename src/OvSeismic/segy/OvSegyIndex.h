#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/OvStatus.h"
#include "OvSeismic/segy/OvGather.h"

#include <atomic>
#include <functional>
#include <memory>
#include <vector>

class OvSegyFile;

/// The header index of one SEG-Y file: the header words of every trace, and the gathers they form.
///
/// A gather is all traces of one field record, in file order; gathers are ordered by the position
/// of their first trace. A file whose field records hold one trace each (a walkaway, say) is one
/// gather of all its traces. Immutable once built, so a const index may be shared between threads.
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
    /// Only the first gather of the file, for showing something before build() has ended. Reads no
    /// more than maxTraces headers; a longer gather is cut there.
    OvStatus buildFirstGather(const OvSegyFile& file, qint64 maxTraces = 4096);

    qint64 traceCount() const;
    int gatherCount() const;
    qint32 fieldRecord(int gather) const;
    int gatherTraceCount(int gather) const;
    /// The gather of a field record, or -1.
    int gatherOfFieldRecord(qint32 fieldRecord) const;
    /// The gather that a trace belongs to, or -1.
    int gatherOfTrace(qint64 trace) const;

    /// Ordinal, field record and headers of a gather, without samples; no headers when there is no
    /// such gather.
    OvGather gatherHeaders(const OvSegyFile& file, int gather) const;
    /// Headers and samples.
    OvStatus readGather(const OvSegyFile& file, int gather, OvGather* out) const;

    /// Smallest and largest absolute offset, m; NaN when no trace has one.
    float minimumOffset() const;
    float maximumOffset() const;
    /// Translated sentences about the geometry: no offsets, one gather of all records, and such.
    QStringList warnings() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
