#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/OvStatus.h"
#include "OvSeismic/segy/OvSegyIndex.h"

#include <functional>
#include <memory>

class OvSegyFile;
struct OvFirstBreaks;

/// Writes the comma-separated table `trace,field_record,channel,offset_m,time_ms,confidence`: one
/// row for every trace in file order, trace counted from 0, time with three decimals and empty
/// where there is no pick or a rejected one, and so is the confidence; offsets have three decimals
/// and are empty where unknown.
///
/// Gathers come in any order; the rows wait in a temporary file, so that the memory needed does not
/// grow with the survey. The table is written beside its place and renamed over it when complete:
/// without finish() the place stays as it was.
class OVSEISMIC_EXPORT OvFirstBreakTextWriter
{
public:
    /// file and index outlive the writer; index is of all traces.
    OvFirstBreakTextWriter(const OvSegyFile& file, const OvSegyIndex& index);
    ~OvFirstBreakTextWriter();
    OvFirstBreakTextWriter(const OvFirstBreakTextWriter&) = delete;
    OvFirstBreakTextWriter& operator=(const OvFirstBreakTextWriter&) = delete;

    OvStatus open(const QString& outPath);
    /// breaks may be empty: a gather without picks. Each gather at most once.
    OvStatus add(int gather, const OvFirstBreaks& breaks);
    /// Gathers that were not added have no picks. goOn is asked now and then; false cancels.
    OvStatus finish(const std::function<bool()>& goOn = {});
    OvStatus cancelled() const;
    OvStatus noMemory() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

/// Text export of first breaks.
namespace OvFirstBreakText {

/// Called at most 20 times a second with gathers done and in all; returning false cancels.
using Progress = std::function<bool(int done, int total)>;

/// The whole table at once, see OvFirstBreakTextWriter. A failure or a cancel leaves outPath as it
/// was.
/// breaksOf returns the first breaks of a gather (possibly empty).
OVSEISMIC_EXPORT OvStatus
exportCsv(const OvSegyFile& file, const OvSegyIndex& index,
          const std::function<OvStatus(int gather, OvFirstBreaks* breaks)>& breaksOf,
          const QString& outPath, const Progress& progress = {});

} // namespace OvFirstBreakText
