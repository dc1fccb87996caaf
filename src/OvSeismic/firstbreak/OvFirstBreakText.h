#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/OvStatus.h"
#include "OvSeismic/segy/OvSegyIndex.h"

class OvSegyFile;
struct OvFirstBreaks;

/// Text export of first breaks.
namespace OvFirstBreakText {

/// Called at most 20 times a second with gathers done and in all; returning false cancels.
using Progress = std::function<bool(int done, int total)>;

/// Writes the comma-separated table `trace,field_record,channel,offset_m,time_ms,confidence`: one
/// row for every trace in file order, trace counted from 0, time with three decimals and empty
/// where there is no pick or a rejected one, and so is the confidence; offsets have three decimals
/// and are empty where unknown. The table is written beside outPath and renamed over it when
/// complete, so a failure or a cancel leaves outPath as it was.
/// breaksOf returns the first breaks of a gather (possibly empty).
OVSEISMIC_EXPORT OvStatus
exportCsv(const OvSegyFile& file, const OvSegyIndex& index,
          const std::function<OvStatus(int gather, OvFirstBreaks* breaks)>& breaksOf,
          const QString& outPath, const Progress& progress = {});

} // namespace OvFirstBreakText
