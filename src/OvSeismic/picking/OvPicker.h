#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/picking/OvPickSettings.h"
#include "OvSeismic/segy/OvGather.h"

#include <atomic>
#include <memory>
#include <vector>

/// What a picker says of one gather, one entry a trace in the gather's order.
struct OvPickResult
{
    std::vector<float> timesMs;     ///< ms after the shot instant; NaN where there is no pick
    std::vector<float> confidences; ///< 0 to 1: how likely the pick is right; 0 without a pick
};

/// An automatic first-break picker.
class OVSEISMIC_EXPORT OvPicker
{
public:
    virtual ~OvPicker();

    /// Picks a gather. Reentrant: called from several threads at once. Returns early, with an empty
    /// result, once *cancel becomes true (cancel may be null).
    virtual OvPickResult pick(const OvGather& gather, const OvPickSettings& settings,
                              const std::atomic<bool>* cancel) const = 0;

    /// The program's picker.
    static std::unique_ptr<OvPicker> create();
};
