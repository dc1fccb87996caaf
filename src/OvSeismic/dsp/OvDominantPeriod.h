#pragma once

#include "OvSeismic/OvSeismicExport.h"

/// Dominant period, in samples, of samples [from, to) of a trace: that of the root-mean-square
/// frequency of their energy, which for a sinusoid is its own. With d the differences of
/// neighbouring samples and x the samples about their mean, sum d^2 / sum x^2 = 4 sin^2(pi /
/// period). 0 when the range is too short or constant.
OVSEISMIC_EXPORT double ovDominantPeriod(const float* samples, int from, int to);
