#include "SyntheticLine.h"

#include "DemoRandom.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <numeric>

namespace {

using namespace SyntheticLine;

constexpr double turn = 6.283185307179586;
constexpr double burstShare = 0.04;
constexpr double deadShare = 0.02;
constexpr double reversedShare = 0.01;
constexpr double rollSum = 4.0; // of the modes' peaks, over the first arrival's

double between(DemoRandom* random, double least, double most)
{
    return least + (most - least) * random->even();
}

// The ground under one shot, and the spread on it.
struct Ground
{
    explicit Ground(DemoRandom* random)
        : spacing(between(random, 10.0, 25.0))
        , source(between(random, -5.0, channels + 5.0))
        , aside(between(random, 2.0, 15.0))
        , weathered(between(random, 600.0, 1000.0))
        , refractor(between(random, 1700.0, 2600.0))
        , deep(between(random, 3000.0, 4500.0))
        , depth(between(random, 8.0, 25.0))
        , deepDepth(between(random, 60.0, 150.0))
    {
        for (double& phase : phases)
            phase = turn * random->even();
        for (double& length : lengths)
            length = between(random, 15.0, 80.0);
        for (int channel = 0; channel < channels; ++channel)
            statics.push_back(2.5 * random->normal());
    }

    double offset(int channel) const
    {
        const double along = (channel - source) * spacing;
        return std::copysign(std::hypot(along, aside), along);
    }

    double staticMs(int channel) const
    {
        double shift = statics[static_cast<std::size_t>(channel)];
        for (std::size_t i = 0; i < phases.size(); ++i)
            shift += 5.0 * std::sin(turn * channel / lengths[i] + phases[i]);
        return shift;
    }

    double firstBreakMs(int channel) const
    {
        const double x = std::abs(offset(channel));
        const auto delay = [](double thickness, double slow, double fast) {
            return 2.0 * thickness * std::sqrt(1.0 / (slow * slow) - 1.0 / (fast * fast));
        };
        const double direct = x / weathered;
        const double head = x / refractor + delay(depth, weathered, refractor);
        const double deepHead =
            x / deep + delay(depth, weathered, deep) + delay(deepDepth, refractor, deep);
        // The statics fade out towards the shot, where the wave has hardly left the surface.
        return 1000.0 * std::min({direct, head, deepHead}) +
               staticMs(channel) * std::min(1.0, x / 100.0) + 20.0;
    }

    double spacing; // m
    double source;  // position along the line, in channels
    double aside;
    double weathered; // m/s
    double refractor;
    double deep;
    double depth; // m
    double deepDepth;
    std::array<double, 3> phases{};
    std::array<double, 3> lengths{}; // channels
    std::vector<double> statics;     // ms
};

struct Wave
{
    double timeMs = 0.0;
    double amplitude = 0.0; // of its largest swing, about
    double frequencyHz = 0.0;
    double decay = 1.6; // per period
};

// Largest value of t exp(-d f t) sin(2 pi f t) in periods.
double largestSwing(double decay)
{
    double largest = 0.0;
    for (int step = 0; step < 400; ++step) {
        const double t = 0.005 * step;
        largest = std::max(largest, std::abs(t * std::exp(-decay * t) * std::sin(turn * t)));
    }
    return largest;
}

void add(const Wave& wave, float* trace)
{
    const double factor = wave.amplitude / largestSwing(wave.decay);
    const double periodMs = 1000.0 / wave.frequencyHz;
    const int first = std::max(static_cast<int>(std::ceil(wave.timeMs / intervalMs)), 0);
    const int last = std::min(
        static_cast<int>((wave.timeMs + 12.0 / wave.decay * periodMs) / intervalMs), sampleCount);
    for (int i = first; i < last; ++i) {
        const double t = (i * intervalMs - wave.timeMs) / periodMs;
        trace[i] += static_cast<float>(factor * t * std::exp(-wave.decay * t) * std::sin(turn * t));
    }
}

std::vector<float> whiteNoise(DemoRandom* random)
{
    std::vector<float> noise(sampleCount);
    for (float& value : noise)
        value = static_cast<float>(random->normal());
    return noise;
}

// White noise through a resonance, with an RMS of 1.
std::vector<float> resonant(DemoRandom* random, double frequencyHz, double radius)
{
    constexpr int settle = 400;
    const double a1 = 2.0 * radius * std::cos(turn * frequencyHz * intervalMs / 1000.0);
    const double a2 = -radius * radius;
    std::vector<double> values(sampleCount + settle, 0.0);
    for (std::size_t i = 2; i < values.size(); ++i)
        values[i] = a1 * values[i - 1] + a2 * values[i - 2] + random->normal();
    double energy = 0.0;
    for (std::size_t i = settle; i < values.size(); ++i)
        energy += values[i] * values[i];
    const double scale = 1.0 / std::sqrt(energy / sampleCount);
    std::vector<float> noise(sampleCount);
    std::transform(values.begin() + settle, values.end(), noise.begin(),
                   [scale](double value) { return static_cast<float>(scale * value); });
    return noise;
}

void addScaled(const std::vector<float>& what, double factor, float* trace)
{
    for (int i = 0; i < sampleCount; ++i)
        trace[i] += static_cast<float>(factor) * what[static_cast<std::size_t>(i)];
}

void addBackground(const NoiseKind& kind, double colourHz, double peak, DemoRandom* random,
                   float* trace)
{
    const double rms = peak / kind.signalToNoise;
    addScaled(kind.noise == Noise::Coloured ? resonant(random, colourHz, 0.9) : whiteNoise(random),
              rms, trace);
    if (kind.noise == Noise::Swell)
        addScaled(resonant(random, 4.0, 0.99), 2.0 * peak, trace);
    if (kind.noise == Noise::Hum) {
        const double phase = turn * random->even();
        for (int i = 0; i < sampleCount; ++i)
            trace[i] += static_cast<float>(peak * std::sin(turn * 0.05 * i * intervalMs + phase));
    }
}

void addBurst(double peak, DemoRandom* random, float* trace)
{
    const double centre = between(random, 0.0, sampleCount);
    const double half = between(random, 8.0, 25.0);
    const double amplitude = peak * between(random, 1.0, 4.0);
    const std::vector<float> noise = resonant(random, between(random, 15.0, 80.0), 0.9);
    for (int i = 0; i < sampleCount; ++i) {
        const double away = (i - centre) / half;
        trace[i] += static_cast<float>(amplitude * std::exp(-away * away)) *
                    noise[static_cast<std::size_t>(i)];
    }
}

// What one shot's waves have in common.
struct Source
{
    explicit Source(DemoRandom* random)
        : frequencyHz(between(random, 25.0, 45.0))
        , decay(between(random, 1.2, 2.0))
        , rollHz(between(random, 8.0, 14.0))
        , rollVelocity(between(random, 280.0, 450.0))
        , colourHz(between(random, 12.0, 30.0))
    {
        for (Echo& echo : echoes)
            echo = {between(random, 45.0, 400.0), between(random, 0.3, 1.2),
                    between(random, 0.6, 1.1)};
    }

    struct Echo
    {
        double delayMs;
        double share; // of the first arrival's peak
        double pitch;
    };
    double frequencyHz;
    double decay;
    double rollHz;
    double rollVelocity;
    double colourHz;
    std::array<Echo, 6> echoes{};
};

void addGroundRoll(const Source& source, double offset, double peak, float* trace)
{
    constexpr int modes = 6;
    for (int mode = 0; mode < modes; ++mode) {
        const double velocity = source.rollVelocity * (1.0 - 0.04 * mode);
        add({20.0 + 1000.0 * offset / velocity, rollSum * peak / modes,
             source.rollHz * (1.0 + 0.12 * mode), 0.8},
            trace);
    }
}

void addWaves(const Ground& ground, const Source& source, int channel, double peak, float* trace)
{
    const double timeMs = ground.firstBreakMs(channel);
    const double offset = std::abs(ground.offset(channel));
    add({timeMs, peak, source.frequencyHz, source.decay}, trace);
    for (const Source::Echo& echo : source.echoes)
        add({timeMs + echo.delayMs * (1.0 - 0.0001 * offset), peak * echo.share,
             source.frequencyHz * echo.pitch, source.decay},
            trace);
    addGroundRoll(source, offset, peak, trace);
}

void addOtherShot(double peak, int channel, double startMs, float* trace)
{
    const double timeMs = startMs + (channels - channel) * 4.0;
    add({timeMs, 1.5 * peak, 30.0, 1.4}, trace);
    add({timeMs + 90.0, 3.0 * peak, 18.0, 1.0}, trace);
}

void leak(OvGather* gather)
{
    const auto energy = [&](int row) {
        const float* trace = gather->trace(row);
        return std::inner_product(trace, trace + sampleCount, trace, 0.0);
    };
    int loudest = 0;
    for (int row = 1; row < channels; ++row)
        loudest = energy(row) > energy(loudest) ? row : loudest;
    const std::vector<float> source(gather->trace(loudest), gather->trace(loudest) + sampleCount);
    for (int row = 0; row < channels; ++row) {
        if (row != loudest)
            addScaled(source, 0.001, gather->trace(row));
    }
}

OvTraceHeader headerOf(const Ground& ground, unsigned seed, int channel)
{
    OvTraceHeader header;
    header.traceIndex = channel;
    header.fieldRecord = static_cast<qint32>(seed);
    header.channel = channel + 1;
    header.traceId = 1;
    header.offset = static_cast<float>(ground.offset(channel));
    header.sourceX = ground.source * ground.spacing;
    header.sourceY = ground.aside;
    header.receiverX = channel * ground.spacing;
    return header;
}

// Peak of the first arrival: it falls with offset, and from coupling to coupling.
double peakAt(double offset, DemoRandom* random)
{
    return 200.0 / (std::abs(offset) + 100.0) * std::exp(0.3 * random->normal());
}

} // namespace

QString NoiseKind::name() const
{
    static const std::array<const char*, 6> names{"white", "coloured",   "50 Hz hum",
                                                  "swell", "cross-talk", "other shot"};
    return QStringLiteral("%1, S/N %2")
        .arg(QLatin1String(names[static_cast<std::size_t>(noise)]))
        .arg(signalToNoise);
}

SyntheticShot SyntheticLine::shot(unsigned seed, const NoiseKind& kind)
{
    DemoRandom random(seed);
    const Ground ground(&random);
    const Source source(&random);
    const double otherMs = between(&random, -200.0, 500.0);
    SyntheticShot shot;
    shot.gather.sampleCount = sampleCount;
    shot.gather.intervalMs = intervalMs;
    shot.gather.fieldRecord = static_cast<qint32>(seed);
    shot.gather.samples.assign(std::size_t(channels) * sampleCount, 0.0F);
    for (int channel = 0; channel < channels; ++channel) {
        shot.gather.headers.push_back(headerOf(ground, seed, channel));
        shot.onsetsMs.push_back(ground.firstBreakMs(channel));
        float* trace = shot.gather.trace(channel);
        const double peak = peakAt(ground.offset(channel), &random);
        addBackground(kind, source.colourHz, peak, &random, trace);
        addWaves(ground, source, channel, peak, trace);
        if (kind.noise == Noise::OtherShot)
            addOtherShot(peak, channel, otherMs, trace);
        if (random.even() < burstShare)
            addBurst(peak, &random, trace);
        if (random.even() < reversedShare)
            std::transform(trace, trace + sampleCount, trace, std::negate<float>());
        if (random.even() < deadShare) {
            std::fill(trace, trace + sampleCount, 0.0F);
            shot.onsetsMs.back() = std::numeric_limits<double>::quiet_NaN();
        }
    }
    if (kind.noise == Noise::CrossTalk)
        leak(&shot.gather);
    return shot;
}
