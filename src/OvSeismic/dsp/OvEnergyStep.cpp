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

void OvEnergyStep::activity(const Reference& reference, double limit, std::vector<float>* values)
{
    bool begun = false;
    // Values ahead of the one at hand have not been replaced yet.
    for (auto value = values->begin(); value != values->end(); ++value) {
        if (*value < 0.0F) {
            *value = begun ? 0.0F : static_cast<float>(-limit);
            continue;
        }
        begun = true;
        const auto end =
            value + std::min<std::ptrdiff_t>(values->end() - value, reference.ahead + 1);
        const double largest = static_cast<double>(*std::max_element(value, end));
        const double noise = std::max(reference.noise, reference.share * largest);
        const double ratio = noise > 0.0 ? static_cast<double>(*value) / noise : 0.0;
        *value =
            static_cast<float>(ratio > 0.0 ? std::clamp(std::log(ratio), -limit, limit) : -limit);
    }
}

void OvEnergyStep::steps(const std::vector<float>& activity, int before, int after, float noise,
                         float* out)
{
    const int points = static_cast<int>(activity.size());
    const auto at = [&](int point) {
        if (point < 0)
            return noise;
        return activity[static_cast<std::size_t>(std::min(point, points - 1))];
    };
    float past = noise * static_cast<float>(before);
    float future = 0.0F;
    for (int point = 0; point < after; ++point)
        future += at(point);
    for (int point = 0; point < points; ++point) {
        out[point] = future / static_cast<float>(after) - past / static_cast<float>(before);
        past += at(point) - at(point - before);
        future += at(point + after) - at(point);
    }
}
