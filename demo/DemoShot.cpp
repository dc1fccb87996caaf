#include "DemoShot.h"

#include "DemoLine.h"
#include "DemoRandom.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double turn = 6.28318530717958647692;
constexpr double intervalS = DemoShot::intervalUs * 1e-6;

struct Wave
{
    double timeS = 0.0;
    double amplitude = 0.0;
    double frequencyHz = 0.0;
    double cycles = 1.5; // length of the decay
};

// The factor makes the largest swing about the amplitude, whatever the frequency and decay.
void add(const Wave& wave, float* samples)
{
    const double decay = wave.frequencyHz / wave.cycles * 2.0;
    const double factor = wave.amplitude * decay * 2.718281828;
    const double startS = DemoShot::delayMs * 1e-3;
    const double lengthS = 8.0 / decay;
    const int first = std::max(static_cast<int>(std::ceil((wave.timeS - startS) / intervalS)), 0);
    const int last = std::min(static_cast<int>((wave.timeS + lengthS - startS) / intervalS),
                              DemoShot::sampleCount - 1);
    for (int i = first; i <= last; ++i) {
        const double t = startS + i * intervalS - wave.timeS;
        samples[i] += static_cast<float>(factor * t * std::exp(-decay * t) *
                                         std::sin(turn * wave.frequencyHz * t));
    }
}

void addBodyWaves(const DemoLine& line, int shot, int station, double offset, float* samples)
{
    const double spread = std::pow(1.0 + offset / 60.0, 1.2);
    const double high = 58.0 - 0.025 * offset;
    add({line.directTime(shot, station), 1.4 / std::pow(1.0 + offset / 12.0, 1.3), high, 1.2},
        samples);
    add({line.firstHeadTime(shot, station), 0.75 / spread, high, 1.4}, samples);
    add({line.secondHeadTime(shot, station), 0.85 / spread, high - 6.0, 1.6}, samples);
    constexpr double depth = 260.0;
    const double reflected = std::hypot(offset, 2.0 * depth) / 2400.0;
    add({reflected, 0.12 / spread, 42.0, 1.5}, samples);
}

// Low frequencies run ahead of high ones, which spreads the ground roll out with offset.
void addSurfaceWaves(double offset, float* samples)
{
    constexpr int modes = 8;
    const double amplitude = 2.2 / std::sqrt(1.0 + offset / 10.0);
    for (int mode = 0; mode < modes; ++mode) {
        const double frequency = 11.0 + 1.6 * mode;
        const double velocity = 330.0 - 14.0 * mode;
        add({offset / velocity, amplitude / modes * 2.0, frequency, 2.5}, samples);
    }
    add({offset / DemoLine::soundVelocity, 0.5 / std::sqrt(1.0 + offset / 20.0), 140.0, 2.0},
        samples);
}

void addNoise(double level, DemoRandom* random, float* samples)
{
    constexpr double memory = 0.6;
    const double fresh = level * std::sqrt(1.0 - memory * memory);
    double value = level * random->normal();
    for (int i = 0; i < DemoShot::sampleCount; ++i) {
        samples[i] += static_cast<float>(value);
        value = memory * value + fresh * random->normal();
    }
}

void addHum(double level, double phase, float* samples)
{
    constexpr double mainsHz = 50.0;
    for (int i = 0; i < DemoShot::sampleCount; ++i)
        samples[i] += static_cast<float>(level * std::sin(turn * mainsHz * i * intervalS + phase));
}

void recordTrace(const DemoLine& line, int shot, int station, DemoRandom* random, float* samples)
{
    const double offset =
        std::abs(DemoLine::stationPosition(station) - DemoLine::shotPosition(shot));
    const double windy = random->even() < 0.02 ? 3.0 : 1.0;
    const double level = 0.0012 * (1.0 + offset / 250.0) * std::exp(0.3 * random->normal()) * windy;
    const double phase = turn * random->even();
    addNoise(level, random, samples);
    if (DemoLine::hums(station))
        addHum(0.006, phase, samples);
    if (!DemoLine::isMisfire(shot)) {
        addBodyWaves(line, shot, station, offset, samples);
        addSurfaceWaves(offset, samples);
    }
    if (DemoLine::isReversed(station))
        std::transform(samples, samples + DemoShot::sampleCount, samples, std::negate<float>());
    if (DemoLine::isDead(station))
        std::fill(samples, samples + DemoShot::sampleCount, 0.0F);
}

} // namespace

std::vector<float> DemoShot::record(const DemoLine& line, int shot)
{
    constexpr unsigned seed = 7001;
    DemoRandom random(seed + static_cast<unsigned>(shot));
    std::vector<float> samples(static_cast<std::size_t>(DemoLine::channelCount) * sampleCount,
                               0.0F);
    for (int channel = 0; channel < DemoLine::channelCount; ++channel)
        recordTrace(line, shot, DemoLine::firstStation(shot) + channel, &random,
                    samples.data() + static_cast<std::ptrdiff_t>(channel) * sampleCount);
    return samples;
}
