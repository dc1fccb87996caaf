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
    // Fitted -4.3; more, so that a gather of nothing but noise stays empty.
    constexpr double noArrival = 6.0;
    // First breaks come later with offset, but for what lies below single receivers.
    constexpr double usualLead = 1.5;
    constexpr double leadWeight = 2.0;
    const double accompanied = logOf(company, 0.5, 6.0);
    const double sum =
        -1.545 + 0.214 * logOf(ratio, 0.5, 20.0) + 0.146 * logOf(strength, 0.5, 20.0) +
        1.531 * likeness + 2.900 * logOf(rise, 0.5, 20.0) - 2.360 * logOf(forerun, 1.0, 6.0) -
        3.755 * std::min(stray, 1.0) - 0.399 * std::min(gap, 1.0) -
        noArrival * std::max(0.5 - accompanied, 0.0) - leadWeight * std::max(lead - usualLead, 0.0);
    return 1.0 / (1.0 + std::exp(-sum));
}
