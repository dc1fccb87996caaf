#include "OvSeismic/picking/OvSlopeCourse.h"

#include "OvSeismic/dsp/OvVectorClones.h"
#include "OvSeismic/picking/OvRowMixer.h"
#include "OvSeismic/picking/OvTraceChain.h"

#include <algorithm>

namespace {

constexpr int reach = 5; // neighbours on either side
// Periods a usual trace distance. Half a spacing off, the outermost neighbours are a third of a
// period out of line.
constexpr double spacing = 0.12;
constexpr int slopes = 7;

OV_VECTOR_CLONES
void takeLarger(const float* in, int count, float* out)
{
    for (int i = 0; i < count; ++i)
        out[i] = std::max(out[i], in[i]);
}

} // namespace

void OvSlopeCourse::listen(OvRowMixer* mixer, const OvTraceChain& chain,
                           const OvOnsetLimits& limits, double slope)
{
    constexpr double longest = 3.0; // what lies farther apart has little in common
    m_line.clear();
    double time = 0.0;
    for (std::size_t link = 0; link < chain.rows.size(); ++link) {
        time += (chain.away[link] < 0 ? -slope : slope) * std::min(chain.steps[link], longest);
        m_line.push_back(time);
    }
    mixer->mix(chain, m_line, reach);
    m_lattice.build(mixer->rows(), limits);
    const OvScoreLattice& scores = m_lattice.scores();
    for (int row = 0; row < scores.rows; ++row)
        takeLarger(scores.row(row), scores.points, m_scores.row(row));
}

bool OvSlopeCourse::find(OvRowMixer* mixer, const OvTraceChain& chain, const OvOnsetLimits& limits,
                         const std::vector<double>& course)
{
    constexpr int rounds = 2; // the second with the slopes of the first
    const auto isCancelled = [&limits] { return limits.cancel && limits.cancel->load(); };
    m_times = course;
    mixer->mix(chain, course, reach);
    m_lattice.build(mixer->rows(), limits);
    m_scores = m_lattice.scores();
    // Where nobody knows which way is away from the shot, waves may run either way.
    const bool isOneWay = std::find(chain.away.begin(), chain.away.end(), 0) == chain.away.end();
    for (int i = isOneWay ? 0 : 1 - slopes; i < slopes && !isCancelled(); ++i)
        listen(mixer, chain, limits, i * spacing * mixer->rows().period);
    for (int round = 0; round < rounds && !isCancelled(); ++round) {
        const auto& path = m_path.find(m_scores, m_lattice.steps(chain, m_times));
        m_times.assign(path.begin(), path.end());
        for (double& time : m_times)
            time *= m_lattice.block();
    }
    return !isCancelled();
}
