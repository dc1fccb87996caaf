#include "OvSeismic/picking/OvPickEvidence.h"

#include <algorithm>
#include <cmath>

void OvPickEvidence::standAlone()
{
    const double loud = std::max(ratio, 1.0);
    strength = loud;
    company = std::sqrt(loud);
    likeness = 1.0 - 1.0 / loud;
}

double OvPickEvidence::confidence() const
{
    const double loud = std::log(std::clamp(ratio, 0.5, 20.0));
    const double strong = std::log(std::clamp(strength, 0.5, 20.0));
    const double accompanied = std::log(std::clamp(company, 0.5, 4.0));
    const double sum = -3.126 + 1.454 * loud + 0.078 * strong + 1.914 * likeness -
                       4.764 * std::min(stray, 1.0) - 2.527 * std::min(gap, 1.0) +
                       2.5 * accompanied;
    return 1.0 / (1.0 + std::exp(-sum));
}
