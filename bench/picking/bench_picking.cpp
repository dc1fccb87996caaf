#include "../Figure.h"
#include "Pictures.h"
#include "RecordedLine.h"
#include "ReferencePickers.h"
#include "Scores.h"
#include "SyntheticLine.h"

#include "OvSeismic/picking/OvPicker.h"

#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <functional>
#include <limits>
#include <thread>

// How well and how fast first breaks are picked: on synthetic gathers with exact truth, and on a
// recorded line with picks made by hand. Without arguments it prints the figures alone.

namespace {

constexpr unsigned firstSeed = 1000;
constexpr double toleranceMs = 3.0 * SyntheticLine::intervalMs;

struct Goal
{
    NoiseKind kind;
    double within; // share of all live traces; 0 none
    double best;   // of the four most confident fifths
};

const std::array<Goal, 10> conditions{{
    {{Noise::White, 10.0}, 0.0, 0.0},
    {{Noise::White, 3.0}, 0.985, 0.995},
    {{Noise::White, 1.5}, 0.87, 0.95},
    {{Noise::Coloured, 10.0}, 0.0, 0.0},
    {{Noise::Coloured, 3.0}, 0.96, 0.99},
    {{Noise::Coloured, 1.5}, 0.50, 0.65},
    {{Noise::Hum, 10.0}, 0.0, 0.0},
    {{Noise::Swell, 10.0}, 0.0, 0.0},
    {{Noise::CrossTalk, 10.0}, 0.0, 0.0},
    {{Noise::OtherShot, 10.0}, 0.0, 0.0},
}};

using Reference = double (*)(const float* samples, int count, double intervalMs);

struct NamedReference
{
    const char* name;
    Reference pick;
};

const std::array<NamedReference, 4> references{{
    {"STA/LTA", ReferencePickers::staLta},
    {"energy ratio", ReferencePickers::modifiedEnergyRatio},
    {"AIC", ReferencePickers::aic},
    {"AR-AIC", ReferencePickers::autoregressiveAic},
}};

OvPickResult pickAll(const OvGather& gather, double minimumConfidence)
{
    static const std::unique_ptr<OvPicker> picker = OvPicker::create();
    OvPickSettings settings;
    settings.minimumConfidence = minimumConfidence;
    return picker->pick(gather, settings, nullptr);
}

void addScores(const SyntheticShot& shot, const OvPickResult& result, Scores* scores)
{
    for (std::size_t row = 0; row < shot.onsetsMs.size(); ++row) {
        if (std::isfinite(shot.onsetsMs[row]))
            scores->add(static_cast<double>(result.timesMs[row]) - shot.onsetsMs[row],
                        static_cast<double>(result.confidences[row]));
    }
}

// What all pickers made of the same gathers.
struct Outcome
{
    Scores all;  // ours, whatever the confidence
    Scores kept; // ours, with the least confidence that is set by default
    std::array<Scores, references.size()> theirs;
};

void addKept(const SyntheticShot& shot, OvPickResult result, Scores* scores)
{
    for (std::size_t row = 0; row < result.timesMs.size(); ++row) {
        if (static_cast<double>(result.confidences[row]) < OvPickSettings::defaultConfidence)
            result.timesMs[row] = std::numeric_limits<float>::quiet_NaN();
    }
    addScores(shot, result, scores);
}

void addReference(const SyntheticShot& shot, Reference pick, Scores* scores)
{
    for (int row = 0; row < SyntheticLine::channels; ++row) {
        const double truth = shot.onsetsMs[static_cast<std::size_t>(row)];
        if (!std::isfinite(truth))
            continue;
        const double at =
            pick(shot.gather.trace(row), SyntheticLine::sampleCount, SyntheticLine::intervalMs);
        scores->add(at * SyntheticLine::intervalMs - truth, 0.0);
    }
}

Outcome tryAll(const NoiseKind& kind, unsigned seed, int gathers, bool withReferences)
{
    Outcome outcome;
    for (int i = 0; i < gathers; ++i) {
        const SyntheticShot shot = SyntheticLine::shot(seed + static_cast<unsigned>(i), kind);
        const OvPickResult result = pickAll(shot.gather, 0.0);
        addScores(shot, result, &outcome.all);
        addKept(shot, result, &outcome.kept);
        for (std::size_t k = 0; k < references.size() && withReferences; ++k)
            addReference(shot, references[k].pick, &outcome.theirs[k]);
    }
    return outcome;
}

// All conditions, each in a thread of its own.
std::vector<Outcome> tryConditions(int gathers, bool withReferences)
{
    std::vector<Outcome> outcomes(conditions.size());
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < conditions.size(); ++i)
        threads.emplace_back([&outcomes, i, gathers, withReferences] {
            outcomes[i] = tryAll(conditions[i].kind, firstSeed, gathers, withReferences);
        });
    for (std::thread& thread : threads)
        thread.join();
    return outcomes;
}

QString percent(double share)
{
    return QString::number(100.0 * share, 'f', 1);
}

void printSyntheticTable(const std::vector<Outcome>& outcomes)
{
    QTextStream out(stdout);
    out << "| noise | picker | best 4/5 | right of picked | picked | bias ms | median ms |";
    for (const auto& reference : references)
        out << ' ' << reference.name << " |";
    out << "\n|---|---|---|---|---|---|---|---|---|---|---|\n";
    for (std::size_t i = 0; i < conditions.size(); ++i) {
        const Outcome& one = outcomes[i];
        out << "| " << conditions[i].kind.name() << " | " << percent(one.all.within(toleranceMs))
            << " | " << percent(one.all.within(toleranceMs, 0.8)) << " | "
            << percent(one.kept.within(toleranceMs) / one.kept.picked()) << " | "
            << percent(one.kept.picked()) << " | " << QString::number(one.all.biasMs(), 'f', 2)
            << " | " << QString::number(one.all.medianAbsoluteMs(), 'f', 2) << " |";
        for (const Scores& scores : one.theirs)
            out << ' ' << percent(scores.within(toleranceMs)) << " |";
        out << '\n';
    }
}

// RMS of an arrival of middling decay over its first period, as a share of its peak.
double rmsOfFirstPeriod()
{
    constexpr double turn = 6.283185307179586;
    constexpr double decay = 1.6;
    constexpr int steps = 1000;
    double energy = 0.0;
    double largest = 0.0;
    for (int i = 0; i < steps; ++i) {
        const double t = static_cast<double>(i) / steps;
        const double value = t * std::exp(-decay * t) * std::sin(turn * t);
        energy += value * value;
        largest = std::max(largest, std::abs(value));
    }
    return std::sqrt(energy / steps) / largest;
}

// The same pickers with the RMS of the arrival for its size in place of its peak.
void printRmsTable(int gathers)
{
    QTextStream out(stdout);
    out << "| noise, RMS over RMS | peak over RMS | picker | best 4/5 |";
    for (const auto& reference : references)
        out << ' ' << reference.name << " |";
    out << "\n|---|---|---|---|---|---|---|---|\n";
    for (const Noise noise : {Noise::White, Noise::Coloured}) {
        for (const double ratio : {10.0, 3.0, 1.5}) {
            const NoiseKind kind{noise, ratio / rmsOfFirstPeriod()};
            const Outcome one = tryAll(kind, firstSeed, gathers, true);
            out << "| " << NoiseKind{noise, ratio}.name() << " | "
                << QString::number(kind.signalToNoise, 'f', 1) << " | "
                << percent(one.all.within(toleranceMs)) << " | "
                << percent(one.all.within(toleranceMs, 0.8)) << " |";
            for (const Scores& scores : one.theirs)
                out << ' ' << percent(scores.within(toleranceMs)) << " |";
            out << '\n';
        }
    }
}

struct LineScores
{
    Scores all;
    Scores kept;
};

bool scoreLine(const QDir& data, LineScores* scores)
{
    const auto picks = RecordedLine::readPicks(data.filePath("picks/lineB_swave_picks.txt"));
    const QDir line(data.filePath("gathers/refr_line_B_swave"));
    const QStringList names = line.entryList({"*.sgy"});
    for (const QString& name : names) {
        const bool read =
            RecordedLine::forEachGather(line.filePath(name), [&](const OvGather& gather) {
                const std::vector<double> manual = RecordedLine::manualTimes(gather, picks);
                const OvPickResult all = pickAll(gather, 0.0);
                const OvPickResult kept = pickAll(gather, OvPickSettings::defaultConfidence);
                for (std::size_t row = 0; row < manual.size(); ++row) {
                    if (!std::isfinite(manual[row]))
                        continue;
                    scores->all.add(static_cast<double>(all.timesMs[row]) - manual[row],
                                    static_cast<double>(all.confidences[row]));
                    scores->kept.add(static_cast<double>(kept.timesMs[row]) - manual[row],
                                     static_cast<double>(kept.confidences[row]));
                }
            });
        if (!read)
            return false;
    }
    return scores->all.count() > 0;
}

void printLineTable(const QDir& data)
{
    LineScores scores;
    QTextStream out(stdout);
    if (!scoreLine(data, &scores))
        return;
    constexpr double sampleMs = 0.25;
    out << "\n| recorded line | 1 sample | 3 | 5 | 5 ms | best 4/5 | bias ms | median ms | picked "
           "|\n"
        << "|---|---|---|---|---|---|---|---|---|\n";
    for (const Scores* one : {&scores.all, &scores.kept})
        out << "| " << one->count() << " | " << percent(one->within(sampleMs)) << " | "
            << percent(one->within(3.0 * sampleMs)) << " | " << percent(one->within(5.0 * sampleMs))
            << " | " << percent(one->within(5.0)) << " | " << percent(one->within(5.0, 0.8))
            << " | " << QString::number(one->biasMs(), 'f', 2) << " | "
            << QString::number(one->medianAbsoluteMs(), 'f', 2) << " | " << percent(one->picked())
            << " |\n";
    for (const Scores::Bin& bin : scores.all.reliability(5.0))
        out << QString::number(bin.confidence, 'f', 2) << ": " << percent(bin.right) << " % of "
            << bin.count << '\n';
}

void drawGather(const NoiseKind& kind, const QString& path)
{
    constexpr unsigned seed = 1004;
    constexpr double endMs = 800.0;
    const SyntheticShot shot = SyntheticLine::shot(seed, kind);
    const OvPickResult all = pickAll(shot.gather, 0.0);
    Pictures::Marks sure{Qt::red, {}};
    Pictures::Marks unsure{QColor(255, 160, 0), {}};
    for (std::size_t row = 0; row < all.timesMs.size(); ++row) {
        const bool kept =
            static_cast<double>(all.confidences[row]) >= OvPickSettings::defaultConfidence;
        const auto time = static_cast<double>(all.timesMs[row]);
        sure.timesMs.push_back(kept ? time : std::nan(""));
        unsure.timesMs.push_back(kept ? std::nan("") : time);
    }
    const QString title =
        kind.name() +
        QStringLiteral(": picks in red, those left out for their confidence in orange");
    Pictures::gather(shot.gather, endMs, {unsure, sure}, title).save(path);
}

// The seeds are others than those that the confidence was fitted to.
void drawReliability(const std::vector<Outcome>& outcomes, const QString& path)
{
    std::vector<std::vector<Scores::Bin>> curves;
    QStringList names;
    constexpr int enough = 30; // fewer picks make no share
    for (const std::size_t i : {1U, 2U, 4U, 5U, 6U, 7U}) {
        std::vector<Scores::Bin> bins = outcomes[i].all.reliability(toleranceMs);
        const auto isScarce = [](const Scores::Bin& bin) { return bin.count < enough; };
        bins.erase(std::remove_if(bins.begin(), bins.end(), isScarce), bins.end());
        curves.push_back(bins);
        names.push_back(conditions[i].kind.name());
    }
    Pictures::reliability(curves, names).save(path);
}

void drawPictures(const std::vector<Outcome>& outcomes, const QDir& folder)
{
    drawGather({Noise::White, 3.0}, folder.filePath("picking-white-3.png"));
    drawGather({Noise::White, 1.5}, folder.filePath("picking-white-1.5.png"));
    drawGather({Noise::Coloured, 3.0}, folder.filePath("picking-coloured-3.png"));
    drawReliability(outcomes, folder.filePath("picking-reliability.png"));
}

// Like Figure::report(), of shares of wrong picks: ours over what is allowed.
void reportShare(const QString& name, double wrong, double allowed)
{
    QTextStream(stdout) << name << ' ' << QString::number(wrong / allowed, 'f', 2) << " 1 "
                        << (wrong <= allowed ? "ok" : "short") << '\n';
    QTextStream(stderr) << "  " << name << ": " << percent(wrong) << " % wrong, "
                        << percent(allowed) << " % allowed\n";
}

void reportWrong(const Goal& goal, const Outcome& outcome)
{
    if (!(goal.within > 0.0))
        return;
    const QString name = goal.kind.name().remove(QStringLiteral(", S/N")).replace(' ', '_');
    reportShare("picking_wrong_" + name, 1.0 - outcome.all.within(toleranceMs), 1.0 - goal.within);
    reportShare("picking_wrong_of_the_sure_" + name, 1.0 - outcome.all.within(toleranceMs, 0.8),
                1.0 - goal.best);
}

constexpr std::size_t passes = 10; // over all gathers: the threads' start is not what is measured

// Seconds that it takes some threads to go through all gathers so often, each gather by one of
// them.
double seconds(int threads, const std::vector<SyntheticShot>& shots,
               const std::function<void(const OvGather& gather)>& work)
{
    std::atomic<std::size_t> next{0};
    QElapsedTimer clock;
    clock.start();
    std::vector<std::thread> pool;
    pool.reserve(static_cast<std::size_t>(threads));
    for (int i = 0; i < threads; ++i)
        pool.emplace_back([&] {
            for (std::size_t at = next++; at < passes * shots.size(); at = next++)
                work(shots[at % shots.size()].gather);
        });
    for (std::thread& thread : pool)
        thread.join();
    return static_cast<double>(clock.nsecsElapsed()) / 1e9;
}

void referenceAic(const OvGather& gather)
{
    volatile double sum = 0.0;
    for (int row = 0; row < gather.traceCount(); ++row)
        sum = sum + ReferencePickers::aic(gather.trace(row), gather.sampleCount, gather.intervalMs);
}

void reportSpeed()
{
    constexpr int gathers = 60;
    constexpr int rounds = 5;
    std::vector<SyntheticShot> shots;
    shots.reserve(gathers);
    for (int i = 0; i < gathers; ++i)
        shots.push_back(
            SyntheticLine::shot(firstSeed + static_cast<unsigned>(i), {Noise::White, 3.0}));
    const auto pick = [](const OvGather& gather) { pickAll(gather, 0.0); };
    std::vector<double> one;
    std::vector<double> two;
    std::vector<double> plain;
    for (int round = 0; round < rounds; ++round) {
        one.push_back(seconds(1, shots, pick));
        two.push_back(seconds(2, shots, pick));
        plain.push_back(seconds(1, shots, referenceAic));
    }
    const double traces = passes * gathers * SyntheticLine::channels;
    QTextStream(stderr) << "  traces a second: one thread "
                        << static_cast<int>(traces / Figure::median(one)) << ", two "
                        << static_cast<int>(traces / Figure::median(two)) << ", plain AIC on one "
                        << static_cast<int>(traces / Figure::median(plain)) << '\n';
    Figure::report("picking_against_aic", 1000.0 * Figure::median(two),
                   1000.0 * Figure::median(plain), 1.0);
    Figure::report("picking_threads", 1000.0 * Figure::median(two), 1000.0 * Figure::median(one),
                   1.0 / 1.8);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOption({"tables", "Print the accuracy tables."});
    parser.addOption({"gathers", "Gathers for each kind of noise.", "count", "120"});
    parser.addOption({"rms", "Print accuracy by the RMS of the arrival over that of the noise."});
    parser.addOption({"pictures", "Write the pictures of the documentation.", "folder"});
    parser.process(application);
    const int gathers = parser.value("gathers").toInt();
    if (parser.isSet("rms")) {
        printRmsTable(gathers);
        return 0;
    }
    const bool tables = parser.isSet("tables");
    const std::vector<Outcome> outcomes = tryConditions(gathers, tables);
    if (tables)
        printSyntheticTable(outcomes);
    const QString data = qEnvironmentVariable("TARNPICK_TEST_DATA");
    if (tables && !data.isEmpty())
        printLineTable(QDir(data));
    if (parser.isSet("pictures"))
        drawPictures(outcomes, QDir(parser.value("pictures")));
    for (std::size_t i = 0; i < conditions.size(); ++i)
        reportWrong(conditions[i], outcomes[i]);
    reportSpeed();
    return 0;
}
