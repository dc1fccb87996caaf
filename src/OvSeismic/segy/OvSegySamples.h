#pragma once

#include "OvSeismic/segy/OvSegyTypes.h"

/// Conversion of samples from their form in the file.
namespace OvSegySamples {

/// Converts count samples of a supported format from in to float32 at out. The two do not overlap.
void toFloat(int formatCode, OvByteOrder order, const char* in, qint64 count, float* out);

} // namespace OvSegySamples
