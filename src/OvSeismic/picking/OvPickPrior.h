#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/segy/OvSegyTypes.h"

#include <cmath>
#include <limits>
#include <memory>
#include <vector>

/// What is known about first breaks before a gather is looked at: a soft guide to the picker.
///
/// Immutable, and shared between threads freely. A guide that is wrong costs time, not picks: the
/// picker leaves it where the data speak clearly.
class OVSEISMIC_EXPORT OvPickPrior
{
public:
    struct Expected
    {
        double timeMs = std::numeric_limits<double>::quiet_NaN(); ///< after the shot instant
        double halfWidthMs = 0.0; ///< a first break farther away than this would surprise

        bool isKnown() const { return std::isfinite(timeMs) && halfWidthMs > 0.0; }
    };

    virtual ~OvPickPrior();

    /// One entry a trace, not known where nothing is known. Traces may come from any gather;
    /// traces of one source next to each other are looked up fastest.
    virtual std::vector<Expected> expected(const std::vector<OvTraceHeader>& traces) const = 0;

    /// intercept + offset / velocity (m/s, ms), give or take a sixth of it and at least 20 ms. Null
    /// unless the velocity is a positive number and the intercept a number.
    static std::shared_ptr<const OvPickPrior> fromVelocity(double velocity, double interceptMs);
};
