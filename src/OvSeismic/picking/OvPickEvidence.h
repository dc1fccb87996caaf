#pragma once

#include "OvSeismic/OvSeismicExport.h"

/// What speaks for one pick.
struct OVSEISMIC_EXPORT OvPickEvidence
{
    double ratio = 0.0;    ///< RMS of the period after the pick over that of the noise ahead of it
    double strength = 0.0; ///< correlation with its neighbours over that of noise
    double likeness = 0.0; ///< correlation coefficient with its neighbours
    double company = 0.0;  ///< median strength of the whole gather: is there any arrival?
    double rise = 0.0;     ///< RMS of the mixed rows behind the pick over that of their noise
    double forerun = 0.0; ///< that of the loudest stretch ahead of it: is there an earlier arrival?
    double stray = 0.0;   ///< distance from where the neighbours point, in periods
    double lead = 0.0;    ///< how much earlier than a pick nearer to the shot, in periods
    double gap = 0.0;     ///< distance of the trace's own onset from the stack's, in periods

    /// Fills in what neighbours would say where a trace has none: no more than its loudness lets
    /// expect.
    void standAlone();
    /// How likely the pick lies within a sixth of a period or so of the first break: 0 to 1. A
    /// logistic regression on generated gathers of five kinds of noise at several levels, down to
    /// noise alone (docs/picking.md).
    double confidence() const;
};
