#include "OvSeismic/picking/OvPickEvidence.h"

#include <algorithm>
#include <cmath>

void OvPickEvidence::standAlone()
{
    const double loud = std::max(ratio, 1.0);
    strength = loud;
    company = std::sqrt(loud);
    likeness = 1.0 - 1.0 / loud;
    rise = loud;
    forerun = 1.0;
}

double OvPickEvidence::confidence() const
{
    const auto logOf = [](double value, double least, double most) {
        return std::log(std::clamp(value, least, most));
    };
    const double sum = -2.392 + 0.087 * logOf(ratio, 0.5, 20.0) +
                       0.041 * logOf(strength, 0.5, 20.0) + 1.857 * likeness +
                       0.861 * logOf(company, 0.5, 6.0) + 2.801 * logOf(rise, 0.5, 20.0) -
                       2.462 * logOf(forerun, 1.0, 6.0) - 4.018 * std::min(stray, 1.0) -
                       0.513 * std::min(gap, 1.0);
    return 1.0 / (1.0 + std::exp(-sum));
}
