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
    const double sum = -0.756 + 0.245 * logOf(ratio, 0.5, 20.0) +
                       0.255 * logOf(strength, 0.5, 20.0) + 1.313 * likeness +
                       0.733 * logOf(company, 0.5, 6.0) + 1.918 * logOf(rise, 0.5, 20.0) -
                       2.786 * logOf(forerun, 1.0, 6.0) - 4.882 * std::min(stray, 1.0) -
                       0.888 * std::min(gap, 1.0);
    return 1.0 / (1.0 + std::exp(-sum));
}
