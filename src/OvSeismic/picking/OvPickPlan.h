#pragma once

#include "OvSeismic/OvSeismicExport.h"

struct OvGather;
struct OvPickParameters;
struct OvTraceChain;

/// The scales on which one gather is searched: the parameters, and where those are 0 the data.
struct OVSEISMIC_EXPORT OvPickPlan
{
    double periodMs = 0.0; ///< dominant period of the arrivals
    double startMs = 0.0;  ///< time of the first grid point after the shot instant
    double stepMs = 0.0;   ///< time between grid points
    int points = 0;        ///< grid points that are searched; 0 when there is nothing to search
    int earliest = 0;      ///< first grid point at which an arrival is possible
    int before = 1;        ///< grid points of the window before an arrival
    int after = 1;         ///< grid points of the window after it
    double tuningMs = 0.0; ///< half-width of the search for the onset
    double leastAmplitude = 0.0; ///< smallest arrival, as a share of the trace's largest amplitude

    double timeMs(int point) const { return startMs + point * stepMs; }
    int nearestPoint(double timeMs) const;

    static OvPickPlan of(const OvGather& gather, const OvTraceChain& chain, double periodMs,
                         const OvPickParameters& parameters);
};
