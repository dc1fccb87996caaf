#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/picking/OvPicker.h"
#include "OvSeismic/segy/OvSegyIndex.h"

#include <functional>

class OvSegyFile;

/// Picks the gathers of a file on several threads.
class OVSEISMIC_EXPORT OvPickRun
{
public:
    struct Request
    {
        const OvSegyFile* file = nullptr;   ///< not owned; outlives the run
        const OvSegyIndex* index = nullptr; ///< not owned; outlives the run
        OvPickSettings settings;
        /// Each gather is guided by what was found in the one picked before it, the first by the
        /// prior of the settings. One thread picks then.
        bool guidedByPrevious = false;
        std::vector<int> done; ///< ordinals, ascending, that are left out
        int threads = 0;       ///< 0 one a core
    };
    /// Called in the thread of run(), in gather order, with the headers and result of each gather.
    /// A failed status stops the run, and run() returns it.
    using Deliver = std::function<OvStatus(const OvGather& gather, const OvPickResult& result)>;
    /// Called in the thread of run() with gathers done, those left out included, and in all.
    using Progress = std::function<void(int done, int total)>;

    /// Ordinals of the gathers that the shot parameters choose.
    static std::vector<int> chosenGathers(int gatherCount, const OvPickParameters& parameters);
    /// A guide by the picks of one gather; null when there are too few.
    static std::shared_ptr<const OvPickPrior> priorOf(const OvGather& gather,
                                                      const OvPickResult& result);

    /// Blocks until all chosen gathers are delivered, a failure, or *cancel. A cancelled run
    /// returns success with *cancel true; what was delivered stands.
    static OvStatus run(const Request& request, const Deliver& deliver, const Progress& progress,
                        const std::atomic<bool>* cancel);
};
