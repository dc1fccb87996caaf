#include "OvSeismic/dsp/OvEnergyStep.h"

#include "OvSeismic/dsp/OvTraceSums.h"

#include <algorithm>
#include <cmath>

void OvEnergyStep::variances(const OvTraceSums& trace, const Grid& grid, double half,
                             std::vector<float>* out)
{
    out->resize(static_cast<std::size_t>(std::max(grid.points, 0)));
    double centre = grid.first;
    for (float& value : *out) {
        const int from = static_cast<int>(std::floor(centre - half + 0.5));
        const int to = static_cast<int>(std::floor(centre + half + 0.5)) + 1;
        const bool inside = centre >= 0.0 && centre <= trace.size() - 1;
        value = inside ? static_cast<float>(trace.variance(from, to)) : -1.0F;
        centre += grid.step;
    }
}

void OvEnergyStep::activity(const Reference& reference, std::vector<float>* values)
{
    const auto quiet = static_cast<float>(-reference.limit);
    bool begun = false;
    // Values ahead of the one at hand have not been replaced yet.
    for (auto value = values->begin(); value != values->end(); ++value) {
        if (*value < 0.0F) {
            *value = begun ? 0.0F : quiet;
            continue;
        }
        begun = true;
        const auto end =
            value + std::min<std::ptrdiff_t>(values->end() - value, reference.ahead + 1);
        const auto largest = static_cast<double>(*std::max_element(value, end));
        const double noise = std::max(reference.noise, reference.share * largest);
        const double ratio = noise > 0.0 ? static_cast<double>(*value) / noise : 0.0;
        *value =
            ratio > 0.0
                ? static_cast<float>(std::clamp(std::log(ratio), -reference.limit, reference.limit))
                : quiet;
    }
}

void OvEnergyStep::steps(const std::vector<float>& activity, const Windows& windows, float* out)
{
    const int points = static_cast<int>(activity.size());
    const auto at = [&](int point) {
        return point < 0 ? -windows.limit
                         : activity[static_cast<std::size_t>(std::min(point, points - 1))];
    };
    const auto before = static_cast<float>(windows.before);
    const auto after = static_cast<float>(windows.after);
    float past = -windows.limit * before;
    float future = 0.0F;
    float heard = 0.0F;
    for (int point = 0; point < windows.after; ++point)
        future += at(point);
    for (int point = 0; point < points; ++point) {
        const float share = std::min(heard / (after * windows.limit), 1.0F);
        out[point] = future / after - past / before - windows.heardPenalty * share;
        heard += std::max(at(point - windows.before), 0.0F);
        past += at(point) - at(point - windows.before);
        future += at(point + windows.after) - at(point);
    }
}
