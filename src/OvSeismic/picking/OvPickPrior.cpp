#include "OvSeismic/picking/OvPickPrior.h"

#include <algorithm>

namespace {

class VelocityPrior : public OvPickPrior
{
public:
    VelocityPrior(double velocity, double interceptMs)
        : m_velocity(velocity)
        , m_interceptMs(interceptMs)
    {
    }

    std::vector<Expected> expected(const std::vector<OvTraceHeader>& traces) const override
    {
        constexpr double msPerSecond = 1000.0;
        constexpr double share = 1.0 / 6.0;
        constexpr double leastMs = 20.0;
        std::vector<Expected> all(traces.size());
        for (std::size_t i = 0; i < traces.size(); ++i) {
            const double offset = std::abs(static_cast<double>(traces[i].offset));
            all[i].timeMs = m_interceptMs + msPerSecond * offset / m_velocity;
            all[i].halfWidthMs = std::max(leastMs, share * all[i].timeMs);
        }
        return all;
    }

private:
    double m_velocity;
    double m_interceptMs;
};

} // namespace

OvPickPrior::~OvPickPrior() = default;

std::shared_ptr<const OvPickPrior> OvPickPrior::fromVelocity(double velocity, double interceptMs)
{
    if (!(velocity > 0.0) || !std::isfinite(velocity) || !std::isfinite(interceptMs))
        return nullptr;
    return std::make_shared<VelocityPrior>(velocity, interceptMs);
}
