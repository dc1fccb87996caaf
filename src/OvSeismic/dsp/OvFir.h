#pragma once

#include "OvSeismic/OvSeismicExport.h"

#include <vector>

/// Short filters over traces.
namespace OvFir {

/// out[i] = sum of taps[k] * in[i + ahead - k]. Beyond its ends in goes on as its mirror image
/// turned over (about the end sample), so that a slow swell does not look like a step there. in and
/// out must not overlap. ahead is the tap that stands at the sample itself: 0 for a filter that
/// looks back only.
OVSEISMIC_EXPORT void apply(const std::vector<float>& taps, int ahead, const float* in, int count,
                            float* out);

/// out[i] = sum over k of pattern[k] * in[i + k]: how a pattern of `length` samples goes with what
/// follows each of `count` points. in holds count + length - 1 samples; in and out must not
/// overlap.
OVSEISMIC_EXPORT void correlate(const float* pattern, int length, const float* in, int count,
                                float* out);

/// Triangle of 2 * half - 1 taps with a sum of 1, centred on tap half - 1.
OVSEISMIC_EXPORT std::vector<float> triangle(int half);

/// One filter that does what two do after each other; `ahead` adds up.
OVSEISMIC_EXPORT std::vector<float> joined(const std::vector<float>& first,
                                           const std::vector<float>& second);

/// Adds factor * in[i] to out[i]. in and out must not overlap.
OVSEISMIC_EXPORT void addScaled(const float* in, float factor, int count, float* out);

/// Adds factor times what lies at i + part (0 to 1), in proportion between in[i] and in[i + 1], to
/// out[i]. in holds count + 1 samples; in and out must not overlap.
OVSEISMIC_EXPORT void addBetween(const float* in, float part, float factor, int count, float* out);

struct Part
{
    const float* samples;
    float weight;
};
/// out[i] = sum of the parts' weight * samples[i].
OVSEISMIC_EXPORT void mix(const std::vector<Part>& parts, int count, float* out);

/// The same of rows of `count` samples each that follow on each other.
OVSEISMIC_EXPORT void mixRows(const float* samples, const float* weights, int rows, int count,
                              float* out);

/// out[lag] = sum of in[i + lag] * in[i] over all i for which both lie in in, for `lags` lags from
/// 0.
OVSEISMIC_EXPORT void autocorrelate(const float* in, int count, int lags, float* out);

/// sum of a[i] * b[i].
OVSEISMIC_EXPORT float dot(const float* a, const float* b, int count);

} // namespace OvFir
