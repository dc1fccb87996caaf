#pragma once

#include "OvSeismic/OvSeismicExport.h"

/// The range that samples keep to.
struct OVSEISMIC_EXPORT OvExtent
{
    float least = 0.0F;
    float most = 0.0F;
    bool isFinite = true; ///< of every sample; the range means nothing without

    /// All 0 without any samples.
    static OvExtent of(const float* samples, int count);
    /// Place of the first sample of an amount or more, or count.
    static int firstAsLarge(const float* samples, int count, float amount);

    /// Largest distance from 0.
    float amount() const { return most > -least ? most : -least; }
};
