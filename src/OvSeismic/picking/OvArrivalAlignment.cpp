#include "OvSeismic/picking/OvArrivalAlignment.h"

#include "OvSeismic/dsp/OvFir.h"
#include "OvSeismic/dsp/OvRank.h"
#include "OvSeismic/dsp/OvVectorClones.h"
#include "OvSeismic/picking/OvPickCourse.h"
#include "OvSeismic/picking/OvTraceChain.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace {

constexpr int fewestNeighbours = 7; // on either side
constexpr int mostNeighbours = 24;
constexpr float misfit = 0.03F; // share of a trace's signal that the pilot does not hold

int rounded(double value)
{
    return static_cast<int>(std::lround(value));
}

std::size_t at(int index)
{
    return static_cast<std::size_t>(index);
}

// Turns products with the pilot into correlations over those of noise of some power; signal holds
// the energy of the signal under it.
OV_VECTOR_CLONES
void takeStrengths(const float* signal, float noise, float sign, int count, float* values)
{
    for (int i = 0; i < count; ++i) {
        const float power = noise + misfit * std::max(signal[i], 0.0F);
        values[i] = sign * values[i] / std::sqrt(std::max(power, 1e-30F));
    }
}

} // namespace

// As many as bring the pilot's strength up.
void OvArrivalAlignment::chooseNeighbours(int mostOnASide)
{
    constexpr double wanted = 16.0;
    constexpr double least = 0.1;
    m_neighbours = fewestNeighbours;
    std::vector<double> strengths;
    for (const Match& match : m_matches)
        strengths.push_back(static_cast<double>(match.strength));
    const double usual = std::max(OvRank::median(strengths), least);
    if (usual > least)
        m_neighbours =
            std::clamp(rounded(wanted * wanted / (usual * usual)), fewestNeighbours, mostOnASide);
    m_taper.clear();
    for (int away = -m_neighbours; away <= m_neighbours; ++away) {
        const double share = away / (0.6 * m_neighbours);
        m_taper.push_back(static_cast<float>(std::exp(-share * share)));
    }
}

// A cut begins reach before the pilot's window and ends reach behind it.
void OvArrivalAlignment::cut(const Input& input)
{
    m_cuts.assign(at(input.rows) * at(m_length), 0.0F);
    m_weights.assign(at(input.rows), 0.0F);
    for (int row = 0; row < input.rows; ++row) {
        const float* samples = input.samples(row);
        float* out = m_cuts.data() + at(row) * at(m_length);
        const double start = m_matches[at(row)].time - m_before;
        const int whole = static_cast<int>(std::floor(start));
        const float part = static_cast<float>(start - whole);
        const int first = std::clamp(-whole, 0, m_length);
        const int last = std::clamp(input.points - 1 - whole, first, m_length);
        OvFir::addBetween(samples + whole + first, part, 1.0F, last - first, out + first);
        const float energy = OvFir::dot(out, out, m_length) / static_cast<float>(m_length);
        const float noise = input.noise(row);
        if (!(energy > 0.0F))
            continue;
        // Loud traces count alike; one that is all noise hardly counts.
        const float excess = std::max(energy - noise * noise, 0.0F) / energy;
        m_weights[at(row)] = 0.05F + excess * excess;
        const float scale = m_matches[at(row)].sign / std::sqrt(energy);
        for (int i = 0; i < m_length; ++i)
            out[i] *= scale;
    }
}

void OvArrivalAlignment::stack(const Input& input, int row)
{
    const OvLinkRange near = input.chain->neighbours(row, m_neighbours);
    const float* taper = m_taper.data() + (m_neighbours + near.first - row);
    m_shares.resize(at(near.last - near.first));
    std::transform(taper, taper + m_shares.size(), m_weights.begin() + near.first, m_shares.begin(),
                   std::multiplies<>());
    m_shares[at(row - near.first)] = 0.0F;
    m_pilot.resize(at(m_length));
    OvFir::mixRows(m_cuts.data() + at(near.first) * at(m_length), m_shares.data(),
                   near.last - near.first, m_length, m_pilot.data());
    const float energy = OvFir::dot(m_pilot.data(), m_pilot.data(), m_length);
    const float scale = energy > 0.0F ? 1.0F / std::sqrt(energy) : 0.0F;
    for (float& value : m_pilot)
        value *= scale;
}

// RMS of the correlation of pilots with noise, over that of the noise's samples.
float OvArrivalAlignment::noiseGain(const Input& input)
{
    constexpr int every = 3;
    double sum = 0.0;
    int used = 0;
    for (int row = 0; row < input.rows; row += every) {
        const float noise = input.noise(row);
        const int clear = rounded(m_matches[at(row)].time - m_before - 0.3 * input.period);
        if (!(noise > 0.0F) || clear < 2 * m_length)
            continue;
        stack(input, row);
        const float* samples = input.samples(row);
        for (const int from : {clear - m_length, clear - 3 * m_length / 2, clear - 2 * m_length}) {
            const float value = OvFir::dot(m_pilot.data(), samples + from, m_length) / noise;
            sum += static_cast<double>(std::min(value * value, 30.0F));
            ++used;
        }
    }
    constexpr int enough = 12;
    constexpr double usual = 1.5;
    return static_cast<float>(used >= enough ? std::max(std::sqrt(sum / used), 0.3) : usual);
}

// Copies what lies under the pilot at all shifts, zeros where the row has ended.
void OvArrivalAlignment::takeUnder(const float* samples, int start, int points)
{
    const int count = static_cast<int>(m_under.size());
    const int first = std::clamp(-start, 0, count);
    const int last = std::clamp(points - start, first, count);
    std::fill(m_under.begin(), m_under.begin() + first, 0.0F);
    std::copy(samples + start + first, samples + start + last, m_under.begin() + first);
    std::fill(m_under.begin() + last, m_under.end(), 0.0F);
}

void OvArrivalAlignment::correlate(const Input& input, int row, float gain)
{
    const int shifts = 2 * m_reach + 1;
    float* out = m_correlations.data() + at(row) * at(shifts);
    const float noise = input.noise(row) * input.noise(row);
    const int start = rounded(m_matches[at(row)].time) - m_before - m_reach;
    m_under.resize(at(shifts + m_length - 1));
    takeUnder(input.samples(row), start, input.points);
    OvFir::correlate(m_pilot.data(), m_length, m_under.data(), shifts, out);
    for (float& value : m_under)
        value *= value;
    m_ones.assign(at(m_length), 1.0F);
    m_energies.resize(at(shifts));
    OvFir::correlate(m_ones.data(), m_length, m_under.data(), shifts, m_energies.data());
    for (int shift = 0; shift < shifts; ++shift) {
        const int from = std::clamp(start + shift, 0, input.points);
        const int to = std::clamp(start + shift + m_length, from, input.points);
        m_energies[at(shift)] -= static_cast<float>(to - from) * noise;
    }
    takeStrengths(m_energies.data(), noise * gain * gain, m_matches[at(row)].sign, shifts, out);
}

// A channel whose best correlation is much stronger turned over is wired that way.
void OvArrivalAlignment::turnReversed()
{
    constexpr float clearly = 2.0F;
    constexpr float strong = 5.0F; // of 5.8, which the misfit leaves of a perfect match
    const int shifts = 2 * m_reach + 1;
    for (std::size_t row = 0; row < m_matches.size(); ++row) {
        float* values = m_correlations.data() + row * at(shifts);
        const int from = m_reach - std::max(m_reach / 4, 1); // near enough for no other lobe
        const auto [smallest, largest] = std::minmax_element(values + from, values + shifts - from);
        if (-*smallest < strong || -*smallest < clearly * *largest)
            continue;
        m_matches[row].sign = -m_matches[row].sign;
        std::transform(values, values + shifts, values, [](float value) { return -value; });
    }
}

void OvArrivalAlignment::score(const Input& input, int row)
{
    const int shifts = 2 * m_reach + 1;
    const float* values = m_correlations.data() + at(row) * at(shifts);
    float* scores = m_lattice.row(row);
    std::transform(values, values + shifts, scores,
                   [](float value) { return value > 0.0F ? 0.5F * value * value : 0.0F; });
    const int start = rounded(m_matches[at(row)].time) - m_reach;
    if (input.addChange)
        input.addChange(row, start, shifts, scores);
}

// How far nearly all rows have moved no farther than, points.
double OvArrivalAlignment::follow(const Input& input)
{
    constexpr double nearlyAll = 0.95;
    std::vector<double> times;
    for (const Match& match : m_matches)
        times.push_back(match.time);
    const std::vector<double> slopes = OvPickCourse::slopes(times, *input.chain);
    m_lattice.resize(input.rows, 2 * m_reach + 1);
    m_steps.resize(m_matches.size());
    for (int row = 0; row < input.rows; ++row) {
        score(input, row);
        if (input.chain->beginsCable(row)) {
            m_steps[at(row)] = OvShiftPath::anywhere;
            continue;
        }
        const int moved = rounded(times[at(row)]) - rounded(times[at(row - 1)]);
        const double free = std::max(input.chain->steps[at(row)], 1.0);
        const auto penalty = static_cast<float>(8.0 / input.period / free);
        m_steps[at(row)] = {rounded(slopes[at(row)] - moved), penalty, penalty};
    }
    const std::vector<int>& path = m_path.find(m_lattice, m_steps);
    for (int row = 0; row < input.rows; ++row) {
        moveTo(input, row, path[at(row)]);
        times[at(row)] = std::abs(m_matches[at(row)].time - times[at(row)]);
    }
    return OvRank::of(times.data(), input.rows, static_cast<int>(nearlyAll * input.rows));
}

// To the vertex of the parabola through a correlation and its neighbours.
void OvArrivalAlignment::moveTo(const Input& input, int row, int peak)
{
    const int shifts = 2 * m_reach + 1;
    const float* values = m_correlations.data() + at(row) * at(shifts);
    Match& match = m_matches[at(row)];
    // The path takes whole steps, and may lie beside a peak between them.
    if (peak > 0 && values[peak - 1] > values[peak])
        --peak;
    else if (peak + 1 < shifts && values[peak + 1] > values[peak])
        ++peak;
    double shift = peak - m_reach;
    if (peak > 0 && peak + 1 < shifts) {
        const float left = values[peak - 1];
        const float right = values[peak + 1];
        const float bend = left - 2.0F * values[peak] + right;
        if (bend < 0.0F && values[peak] > left && values[peak] > right)
            shift += static_cast<double>(0.5F * (left - right) / bend);
    }
    match.time = std::clamp(rounded(match.time) + shift, 0.0, input.points - 1.0);
    match.strength = values[peak];
}

void OvArrivalAlignment::settle(const Input& input)
{
    std::vector<double> times;
    for (const Match& match : m_matches)
        times.push_back(match.time);
    const std::vector<double> strays = OvPickCourse::strays(times, 5, *input.chain);
    cut(input);
    for (int row = 0; row < input.rows; ++row) {
        Match& match = m_matches[at(row)];
        match.stray = static_cast<float>(std::abs(strays[at(row)]));
        stack(input, row);
        match.likeness =
            OvFir::dot(m_pilot.data(), m_cuts.data() + at(row) * at(m_length), m_length) /
            std::sqrt(static_cast<float>(m_length));
    }
}

bool OvArrivalAlignment::align(const Input& input, const std::vector<double>& times, int rounds)
{
    m_before = std::max(rounded(0.25 * input.period), 1);
    m_length = m_before + std::max(rounded(1.25 * input.period), 4);
    m_reach = std::max(rounded(0.9 * input.period), 2);
    m_matches.assign(at(input.rows), {});
    for (int row = 0; row < input.rows; ++row)
        m_matches[at(row)].time = times[at(row)];
    m_correlations.resize(std::max(m_correlations.size(), at(input.rows) * at(2 * m_reach + 1)));
    return refine(input, rounds);
}

bool OvArrivalAlignment::refine(const Input& input, int rounds)
{
    constexpr double settled = 0.05; // periods
    for (int round = 0; round < rounds; ++round) {
        if (input.cancel && input.cancel->load())
            return false;
        chooseNeighbours(round + 2 < rounds ? fewestNeighbours : mostNeighbours);
        cut(input);
        const float gain = noiseGain(input);
        for (int row = 0; row < input.rows; ++row) {
            if (input.cancel && input.cancel->load())
                return false;
            stack(input, row);
            correlate(input, row, gain);
        }
        turnReversed();
        if (follow(input) < settled * input.period)
            break;
    }
    settle(input);
    return true;
}
