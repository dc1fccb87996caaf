#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/picking/OvPickPrior.h"

#include <memory>

/// Learns a guide from picks: those of an interpreter, of a whole survey, or of the gather before.
///
/// What is kept is a curve of time over offset for each of the directions in which receivers lie
/// from a source (eight of 45 degrees by the coordinates; the two signs of the offset where there
/// are none). Where picks of sources near by are at hand they are the guide; farther away, the
/// curve of the whole survey in that direction is, and then that of all directions. The memory used
/// is bounded whatever the number of picks. Not for several threads at once.
class OVSEISMIC_EXPORT OvPickPriorBuilder
{
public:
    OvPickPriorBuilder();
    ~OvPickPriorBuilder();
    OvPickPriorBuilder(OvPickPriorBuilder&&) noexcept;
    OvPickPriorBuilder& operator=(OvPickPriorBuilder&&) noexcept;

    /// A pick, ms after the shot instant. One without an offset or time is not counted.
    void add(const OvTraceHeader& trace, double timeMs);
    qint64 count() const;
    /// The guide, which outlives the builder; null of fewer than three picks. May be called again
    /// after more picks.
    std::shared_ptr<const OvPickPrior> build() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
