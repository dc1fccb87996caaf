#pragma once

#include "OvSeismic/OvSeismicExport.h"

#include <vector>

/// How likely a trace turns from noise to signal at each block of samples.
///
/// The energy of a block of noise, over the variance of the noise, is 1 on average; that of a
/// signal as strong again as the noise twice that and more. The log-likelihood ratio of the two
/// normal laws (Basseville, M., Nikiforov, I., 1993, Detection of abrupt changes, ch. 2) is held
/// between bounds, so that no burst and no strong wave outweighs all the rest.
namespace OvChangeScore {

/// Mean energy of each whole block of `block` samples; out has count / block of them.
OVSEISMIC_EXPORT void energies(const float* samples, int count, int block, float* out);

struct Rule
{
    float noise = 1.0F;      ///< mean energy of the noise
    float forerunner = 0.0F; ///< share of the largest energy of the next blocks that is noise, too
    int ahead = 0;           ///< how many blocks that looks ahead
    int window = 1;          ///< blocks from the change on that have to be signal
    int first = 0;           ///< blocks before it are as good as noise
    float standsOut = 0.0F;  ///< later blocks count by what they exceed this
    float leak = 0.0F;       ///< what noise alone exceeds that by, on average
};

/// Turns energies into ratios in place.
OVSEISMIC_EXPORT void ratios(const Rule& rule, int blocks, float* values);

/// Score of a change at the start of each block: the ratios of the window from there on, and the
/// excess of what comes later over the leak. A window of quiet costs, what is loud far behind the
/// window counts wherever the change is put: a weak first wave is not given up for a strong later
/// one. ratios and out must not overlap.
OVSEISMIC_EXPORT void scores(const Rule& rule, int blocks, const float* ratios, float* out);

} // namespace OvChangeScore
