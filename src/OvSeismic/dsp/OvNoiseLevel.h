#pragma once

#include "OvSeismic/OvSeismicExport.h"

#include <vector>

/// How loud noise is, told from stretches of which not all are noise.
///
/// The energy of a stretch of Gaussian noise is chi-square distributed, so that any quantile of the
/// stretches' energies tells the mean (Wilson, E., Hilferty, M., 1931, The distribution of
/// chi-square, Proc. Natl. Acad. Sci. 17, 684-688). `freedom` is the number of independent samples
/// in one sample: 1 for white noise.
namespace OvNoiseLevel {

/// What a share of chi-square variables over their degrees of freedom stays below.
OVSEISMIC_EXPORT double chiSquareQuantile(double share, double degrees);

/// Independent samples in one sample of a process with this autocorrelation, from lag 0.
OVSEISMIC_EXPORT double freedomOf(const std::vector<double>& correlation);

/// Mean energy of noise that shares the samples with louder things, from the quieter stretches;
/// negative when there is no stretch that is not silent. Keeps its memory from call to call; not
/// for several threads at once.
class OVSEISMIC_EXPORT Meter
{
public:
    float quiet(const float* samples, int count, int stretch, double freedom);
    /// Mean energy of samples that should be all noise: without single bursts, and not less than
    /// what the louder stretches stand for, so that noise that comes and goes counts as it is at
    /// its loudest. count is a stretch at least.
    float usual(const float* samples, int count, int stretch, double freedom);

private:
    void load(const float* samples, int count, int stretch);
    float ranked(std::size_t rank) const;

    std::vector<float> m_energies; // of the stretches
};

} // namespace OvNoiseLevel
