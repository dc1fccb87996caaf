#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/dsp/OvFirstSwing.h"

#include <atomic>
#include <vector>

struct OvPickParameters;
class OvTraceGrid;

/// The onset on each trace of a chain, near a guide.
namespace OvOnsetSearch {

/// How far onsets are looked for.
struct Scale
{
    double periodMs = 0.0; ///< dominant period of the arrivals
    double tuningMs = 0.0; ///< half-width of the search about the guide
};

/// An arrival on one trace.
struct Arrival
{
    double timeMs = 0.0;  ///< of the onset, after the shot instant; NaN when none was found
    double ratio = 0.0;   ///< RMS of the period after the onset over that of the two before it
    double strayMs = 0.0; ///< distance from where the neighbours' onsets point
};

/// One arrival for each row of the grid, guide holding its time there, ms; empty once *cancel is
/// true (cancel may be null). sign is that of first swings, where a trace offers a choice.
OVSEISMIC_EXPORT std::vector<Arrival> find(const OvTraceGrid& grid, const Scale& scale,
                                           const std::vector<double>& guide,
                                           OvFirstSwing::Sign sign,
                                           const std::atomic<bool>* cancel);

/// The sign that first swings are taken to have: the asked one, unless those that are clear of the
/// noise mostly have the other.
OVSEISMIC_EXPORT OvFirstSwing::Sign preferredSign(const OvTraceGrid& grid, const Scale& scale,
                                                  const std::vector<double>& guide,
                                                  const OvPickParameters& parameters,
                                                  const std::atomic<bool>* cancel);

} // namespace OvOnsetSearch
