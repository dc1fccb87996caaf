#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/firstbreak/OvFirstBreakFile.h"
#include "OvSeismic/picking/OvPickPriorBuilder.h"

#include <atomic>

struct OvGather;

/// Learns a guide from the picks in a first-break file.
///
/// Taken are the picks made by hand, and the automatic ones of the gathers in which somebody has
/// picked by hand: these have been looked at. A file without picks by hand teaches by all its
/// automatic ones. Rejected picks never teach.
class OVSEISMIC_EXPORT OvPickTeacher
{
public:
    OvPickTeacher(const OvSegyFile& segy, const OvSegyIndex& index);

    /// Looks at all gathers but one (-1 none). Stops, with success, once *cancel is true (may be
    /// null). Fails when the file cannot be read.
    OvStatus learn(const OvFirstBreakFile& file, int except, const std::atomic<bool>* cancel);
    /// Learns from one gather, whatever was picked there.
    OvStatus learnGather(const OvFirstBreakFile& file, int gather);
    /// Null when there were too few picks.
    std::shared_ptr<const OvPickPrior> prior() const;

private:
    OvStatus readGather(const OvFirstBreakFile& file, int gather, OvGather* headers,
                        OvFirstBreaks* breaks) const;

    const OvSegyFile& m_segy;
    const OvSegyIndex& m_index;
    OvPickPriorBuilder m_lookedAt;
    OvPickPriorBuilder m_automatic;
};
