#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/segy/OvSegyTypes.h"

/// Conversion of samples from their form in the file.
namespace OvSegySamples {

/// Converts count samples of a supported format from in to float32 at out; in needs no alignment.
/// The two do not overlap. Integers and doubles are rounded to the nearest float32, values beyond
/// its range become infinite. Safe to call from any thread.
OVSEISMIC_EXPORT void toFloat(int formatCode, OvByteOrder order, const char* in, qint64 count,
                              float* out);

} // namespace OvSegySamples
