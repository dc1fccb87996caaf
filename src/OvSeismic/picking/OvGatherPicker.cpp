#include "OvSeismic/picking/OvGatherPicker.h"

#include "OvSeismic/dsp/OvFir.h"
#include "OvSeismic/dsp/OvRank.h"
#include "OvSeismic/picking/OvArrivalAlignment.h"
#include "OvSeismic/picking/OvArrivalStack.h"
#include "OvSeismic/picking/OvMixedCourse.h"
#include "OvSeismic/picking/OvOnsetGuide.h"
#include "OvSeismic/picking/OvOnsetSearch.h"
#include "OvSeismic/picking/OvPhaseSearch.h"
#include "OvSeismic/picking/OvPickCourse.h"
#include "OvSeismic/picking/OvPickEvidence.h"
#include "OvSeismic/picking/OvPickPrior.h"
#include "OvSeismic/picking/OvTraceChain.h"
#include "OvSeismic/picking/OvTraceGrid.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using OvRank::median;

constexpr double pointsAPeriod = 15.0;

// What one thread keeps from gather to gather.
struct Workspace
{
    OvTraceGrid grid;
    OvTraceGrid whitened;
    OvOnsetGuide guide;
    OvArrivalAlignment alignment;
    OvMixedCourse mixed;
    OvArrivalStack stack;
};

std::size_t at(int index)
{
    return static_cast<std::size_t>(index);
}

int rounded(double value)
{
    return static_cast<int>(std::lround(value));
}

bool isSet(const std::atomic<bool>* cancel)
{
    return cancel && cancel->load();
}

float rms(const float* samples, int from, int to)
{
    return to > from ? std::sqrt(OvFir::dot(samples + from, samples + from, to - from) /
                                 static_cast<float>(to - from))
                     : 0.0F;
}

bool inOffsetRange(const OvTraceHeader& header, const OvPickParameters& parameters)
{
    if (!std::isfinite(header.offset))
        return true;
    const double offset = std::abs(static_cast<double>(header.offset));
    return offset >= parameters.minimumOffsetM &&
           (parameters.maximumOffsetM == 0 || offset <= parameters.maximumOffsetM);
}

OvTraceChain sampleOf(const OvTraceChain& chain)
{
    constexpr std::size_t enough = 16;
    OvTraceChain sample;
    const std::size_t every = std::max<std::size_t>(1, chain.rows.size() / enough);
    for (std::size_t i = 0; i < chain.rows.size(); i += every) {
        sample.rows.push_back(chain.rows[i]);
        if (!chain.cables.empty())
            sample.cables.push_back(chain.cables[i]);
    }
    sample.steps.assign(sample.rows.size(), 1.0);
    sample.away.assign(sample.rows.size(), 0);
    return sample;
}

// Picks one gather.
class Run
{
public:
    Run(const OvGather& gather, const OvTraceChain& chain, const OvPickSettings& settings,
        const std::atomic<bool>* cancel, Workspace* workspace)
        : m_gather(gather)
        , m_chain(chain)
        , m_settings(settings)
        , m_cancel(cancel)
        , m_work(*workspace)
    {
    }

    /// False when cancelled.
    bool findCourse();
    bool alignTraces();
    bool findOnsets();
    void deliver(OvPickResult* result);

private:
    const OvPickParameters& parameters() const { return m_settings.parameters; }
    int rows() const { return m_work.grid.rows(); }
    void chooseInterval();
    void takeLimits();
    void addPrior();
    OvArrivalAlignment::Input alignmentInput() const;
    double contrast(const OvTraceGrid& grid) const;
    void chooseGrid();
    double swingPeriod() const;
    std::vector<OvArrivalStack::Member> members() const;
    void takeOnsets(const std::vector<double>& stacked);
    std::vector<OvPickEvidence> evidence() const;
    void addLeads(std::vector<OvPickEvidence>* all) const;
    double ratioAt(const OvTraceGrid& grid, int row, double point) const;
    bool passesThresholds(int row, double point) const;

    const OvGather& m_gather;
    const OvTraceChain& m_chain;
    const OvPickSettings& m_settings;
    const std::atomic<bool>* m_cancel;
    Workspace& m_work;
    double m_scouted = 0.0; // period, points
    OvOnsetLimits m_limits;
    const OvTraceGrid* m_clean = nullptr; // the rows, or without their predictable noise
    double m_swing = 0.0;                 // dominant period of the clean rows, points
    std::vector<OvOnsetSearch::Arrival> m_own;
    std::vector<double> m_points; // the onsets
    std::vector<double> m_gaps;   // between the own and the stack's
};

void Run::chooseInterval()
{
    constexpr int rounds = 4;
    constexpr int leastPoints = 60;
    const OvTraceChain sample = sampleOf(m_chain);
    int every = 1;
    for (int round = 0; round < rounds && !isSet(m_cancel); ++round) {
        m_work.grid.load(m_gather, sample, every, parameters().processingLengthMs);
        m_scouted = m_work.guide.scout(m_work.grid, sample, m_cancel);
        const int coarser = static_cast<int>(m_scouted / pointsAPeriod);
        if (coarser < 2 || m_work.grid.points() / coarser < leastPoints)
            break;
        every *= coarser;
        m_scouted /= coarser;
    }
    if (!isSet(m_cancel))
        m_work.grid.load(m_gather, m_chain, every, parameters().processingLengthMs);
}

void Run::takeLimits()
{
    // What is faster than 8 km/s or slower than sound is unlikely to be a first break.
    constexpr double fastest = 8.0;
    constexpr double slowest = 0.3;
    // An arrival below a larger threshold is looked for, and then left out.
    constexpr double mostStill = 0.01;
    const OvTraceGrid& grid = m_work.grid;
    m_limits.cancel = m_cancel;
    m_limits.leastAmplitude = std::min(parameters().amplitudeThreshold, mostStill);
    m_limits.windowPoints = parameters().quickSearchWindowMs / grid.stepMs();
    // Nothing arrives before the shot, whatever was recorded ahead of it.
    m_limits.earliest = static_cast<int>(std::floor(grid.pointAt(0, 0.0)));
    for (int row = 0; row < rows() && m_chain.hasOffsets; ++row) {
        const double offset =
            std::abs(static_cast<double>(m_gather.headers[at(m_chain.rows[at(row)])].offset));
        m_limits.earliestLikely.push_back(
            static_cast<float>(grid.pointAt(row, offset / fastest - 5.0)));
        m_limits.latestLikely.push_back(
            static_cast<float>(grid.pointAt(row, offset / slowest + 100.0)));
    }
    if (m_settings.prior)
        addPrior();
}

void Run::addPrior()
{
    std::vector<OvTraceHeader> headers;
    headers.reserve(m_chain.rows.size());
    for (const int row : m_chain.rows)
        headers.push_back(m_gather.headers[at(row)]);
    const auto expected = m_settings.prior->expected(headers);
    for (int row = 0; row < rows(); ++row) {
        const OvPickPrior::Expected& one = expected[at(row)];
        m_limits.expected.push_back(static_cast<float>(m_work.grid.pointAt(row, one.timeMs)));
        m_limits.halfWidths.push_back(
            one.isKnown() ? static_cast<float>(one.halfWidthMs / m_work.grid.stepMs()) : 0.0F);
    }
}

bool Run::findCourse()
{
    chooseInterval();
    if (isSet(m_cancel))
        return false;
    takeLimits();
    return m_work.guide.find(m_work.grid, m_chain, m_limits, m_scouted);
}

OvArrivalAlignment::Input Run::alignmentInput() const
{
    OvArrivalAlignment::Input input;
    input.rows = rows();
    input.points = m_work.grid.points();
    input.period = m_work.guide.period();
    input.samples = [this](int row) { return m_work.guide.filtered(row); };
    input.noise = [this](int row) { return m_work.guide.noise(row); };
    input.addChange = [this](int row, int point, int count, float* out) {
        m_work.guide.lattice().addScores(row, point, count, out);
    };
    input.chain = &m_chain;
    input.cancel = m_cancel;
    return input;
}

bool Run::alignTraces()
{
    constexpr int rounds = 2;
    const OvArrivalAlignment::Input input = alignmentInput();
    OvArrivalAlignment& alignment = m_work.alignment;
    if (!alignment.align(input, m_work.guide.times(), rounds) ||
        !m_work.mixed.find(m_work.guide, alignment.matches(), m_work.grid, m_chain, m_limits))
        return false;
    return m_work.mixed.times() == m_work.guide.times()
               ? alignment.refine(input, rounds)
               : alignment.align(input, m_work.mixed.times());
}

// Median over the rows of the energy behind the course over that ahead of it.
double Run::contrast(const OvTraceGrid& grid) const
{
    std::vector<double> ratios;
    for (int row = 0; row < rows(); ++row) {
        const double ratio = ratioAt(grid, row, m_work.mixed.times()[at(row)]);
        if (std::isfinite(ratio))
            ratios.push_back(ratio * ratio);
    }
    return ratios.empty() ? 0.0 : median(ratios);
}

// RMS of the period from a point on over that of the periods ahead of it; NaN too near to an end of
// the trace.
double Run::ratioAt(const OvTraceGrid& grid, int row, double point) const
{
    constexpr int edge = 9;
    const double period = m_work.guide.period();
    const int start = static_cast<int>(point);
    const int length = std::max(static_cast<int>(1.2 * period), 4);
    const int from = std::max(grid.first(row) + edge, start - static_cast<int>(6.0 * period));
    const int to = start - static_cast<int>(0.3 * period);
    if (to - from < length || start + length > grid.last(row))
        return std::numeric_limits<double>::quiet_NaN();
    const float noise = rms(grid.row(row), from, to);
    const float signal = rms(grid.row(row), start, start + length);
    const float still = 1e-6F * grid.largest(row);
    return static_cast<double>(signal / std::max(noise, still));
}

// Rows without their predictable noise show onsets better where there is much of it; where there is
// little, the rows as they are.
void Run::chooseGrid()
{
    constexpr double littleNoise = 30.0;
    constexpr double worthIt = 1.5;
    const double asIs = contrast(m_work.grid);
    m_clean = &m_work.grid;
    if (asIs >= littleNoise)
        return;
    m_work.whitened.takeFiltered(m_work.grid, m_work.guide.whitener());
    if (contrast(m_work.whitened) > worthIt * asIs)
        m_clean = &m_work.whitened;
}

double Run::swingPeriod() const
{
    constexpr double searched = 6.0;
    const double period = m_work.guide.period();
    const double swing =
        OvPickCourse::periodBehind(*m_clean, m_work.mixed.times(), searched * period);
    return swing > 0.0 ? std::clamp(swing, 0.7 * period, 3.0 * period) : period;
}

std::vector<OvArrivalStack::Member> Run::members() const
{
    constexpr float least = 1.0F;
    constexpr float most = 10.0F;
    std::vector<OvArrivalStack::Member> members;
    for (const OvArrivalAlignment::Match& match : m_work.alignment.matches())
        members.push_back({match.time,
                           match.strength < least ? 0.0F : std::min(match.strength, most),
                           match.sign});
    return members;
}

// A trace's own onset counts where the trace stands clear of the noise and its neighbours say the
// like: by itself, or when it says about the same as the stack.
void Run::takeOnsets(const std::vector<double>& stacked)
{
    constexpr double clear = 4.0;
    constexpr double visible = 3.0;
    constexpr double aboutTheSame = 0.15; // periods
    constexpr double mostStray = 0.5;     // from the neighbours' own onsets
    const double period = m_work.guide.period();
    std::vector<double> ratios;
    for (const OvOnsetSearch::Arrival& arrival : m_own)
        ratios.push_back(arrival.ratio);
    const std::vector<double> around = OvPickCourse::runningMedians(ratios, 4, m_chain.cables);
    for (int row = 0; row < rows(); ++row) {
        const double own = m_work.grid.pointAt(row, m_own[at(row)].timeMs);
        const double stack = m_work.alignment.matches()[at(row)].time + stacked[at(row)];
        const double ratio = std::min(ratios[at(row)], around[at(row)]);
        const double gap = std::isfinite(own) ? std::abs(own - stack) / period : 1.0;
        const bool alike = std::isfinite(own) &&
                           m_own[at(row)].strayMs < mostStray * period * m_work.grid.stepMs();
        m_points.push_back(
            alike && (ratio > clear || (ratio > visible && gap < aboutTheSame)) ? own : stack);
        m_gaps.push_back(gap);
    }
}

bool Run::findOnsets()
{
    constexpr double behindCourse = 0.15; // periods; the course runs ahead of the onsets
    constexpr double usualTuning = 0.6;   // periods
    chooseGrid();
    m_swing = swingPeriod();
    const double tuningMs = static_cast<double>(parameters().tuningSearchWindowMs);
    OvOnsetSearch::Scale scale;
    scale.periodMs = m_swing * m_work.grid.stepMs();
    scale.tuningMs = tuningMs > 0.0 ? tuningMs : usualTuning * scale.periodMs;
    std::vector<double> course;
    course.reserve(at(rows()));
    for (int row = 0; row < rows(); ++row)
        course.push_back(m_work.grid.timeMs(row, m_work.mixed.times()[at(row)]) +
                         behindCourse * scale.periodMs);
    const auto sign = OvOnsetSearch::preferredSign(*m_clean, scale, course, parameters(), m_cancel);
    m_work.stack.setNeighbours(m_work.alignment.neighbours());
    const std::vector<double> stacked =
        m_work.stack.onsets(*m_clean, members(), m_work.guide.period(), sign);
    m_own = OvOnsetSearch::find(*m_clean, scale, course, sign, m_cancel);
    if (m_own.empty())
        return false;
    takeOnsets(stacked);
    return true;
}

bool Run::passesThresholds(int row, double point) const
{
    const OvTraceGrid& grid = m_work.grid;
    // Behind its end a trace that is shorter than the others shows nothing.
    if (point >= grid.last(row))
        return false;
    const int from = std::clamp(rounded(point), 0, grid.points());
    const int to = std::clamp(rounded(point + std::max(m_swing, 4.0)), from, grid.points());
    float largest = 0.0F;
    for (int i = from; i < to; ++i)
        largest = std::max(largest, std::abs(grid.row(row)[i]));
    if (static_cast<double>(largest) <
        parameters().amplitudeThreshold * static_cast<double>(grid.largest(row)))
        return false;
    const double ratio = ratioAt(grid, row, point);
    const double told = std::isfinite(ratio) ? ratio : m_own[at(row)].ratio;
    return told >= parameters().snrThreshold;
}

// What speaks for the pick of each row.
std::vector<OvPickEvidence> Run::evidence() const
{
    const double period = m_work.guide.period();
    const auto& matches = m_work.alignment.matches();
    const std::vector<double> strays = OvPickCourse::strays(m_points, 5, m_chain);
    std::vector<double> strengths;
    std::vector<double> rises;
    std::vector<double> foreruns;
    for (int row = 0; row < rows(); ++row) {
        strengths.push_back(static_cast<double>(matches[at(row)].strength));
        rises.push_back(m_work.mixed.riseAt(row, m_points[at(row)]));
        foreruns.push_back(m_work.mixed.forerunAt(m_work.grid, row, m_points[at(row)]));
    }
    rises = OvPickCourse::runningMedians(rises, 4, m_chain.cables);
    foreruns = OvPickCourse::runningMedians(foreruns, 4, m_chain.cables);
    const double company = median(strengths);
    std::vector<OvPickEvidence> all(at(rows()));
    for (int row = 0; row < rows(); ++row) {
        const double ratio = ratioAt(*m_clean, row, m_points[at(row)]);
        OvPickEvidence& one = all[at(row)];
        one.ratio = std::isfinite(ratio) ? ratio : m_own[at(row)].ratio;
        one.strength = strengths[at(row)];
        one.company = company;
        one.likeness = static_cast<double>(matches[at(row)].likeness);
        one.rise = rises[at(row)];
        one.forerun = foreruns[at(row)];
        one.stray = std::abs(strays[at(row)]) / period;
        one.gap = m_gaps[at(row)];
        if (m_chain.isAlone(row))
            one.standAlone();
    }
    addLeads(&all);
    return all;
}

// Picks that are likely right by themselves tell how early those farther out may be.
void Run::addLeads(std::vector<OvPickEvidence>* all) const
{
    std::vector<bool> trusted;
    for (const OvPickEvidence& one : *all)
        trusted.push_back(one.confidence() > 0.5);
    const std::vector<double> leads = OvPickCourse::leads(m_points, trusted, m_chain);
    for (int row = 0; row < rows(); ++row)
        (*all)[at(row)].lead = leads[at(row)] / m_work.guide.period();
}

void Run::deliver(OvPickResult* result)
{
    std::vector<OvArrivalStack::Member> onsets = members();
    for (int row = 0; row < rows(); ++row)
        onsets[at(row)].point = m_points[at(row)];
    const std::vector<double> points =
        OvPhaseSearch::find(*m_clean, onsets, m_swing, m_settings.phase);
    const std::vector<OvPickEvidence> all = evidence();
    for (int row = 0; row < rows(); ++row) {
        const double confidence = all[at(row)].confidence();
        const int source = m_chain.rows[at(row)];
        if (confidence < m_settings.minimumConfidence ||
            !passesThresholds(row, m_points[at(row)]) ||
            !inOffsetRange(m_gather.headers[at(source)], parameters()))
            continue;
        result->timesMs[at(source)] = static_cast<float>(m_work.grid.timeMs(row, points[at(row)]));
        result->confidences[at(source)] = static_cast<float>(confidence);
    }
}

} // namespace

OvPickResult OvGatherPicker::pick(const OvGather& gather, const OvPickSettings& settings,
                                  const std::atomic<bool>* cancel) const
{
    static thread_local Workspace workspace;
    OvPickResult result;
    result.timesMs.assign(gather.headers.size(), std::numeric_limits<float>::quiet_NaN());
    result.confidences.assign(gather.headers.size(), 0.0F);
    const OvTraceChain chain = OvTraceChain::of(gather);
    if (chain.rows.empty() || !(gather.intervalMs > 0.0))
        return result;
    Run run(gather, chain, settings, cancel, &workspace);
    if (!run.findCourse() || !run.alignTraces() || !run.findOnsets())
        return {};
    run.deliver(&result);
    return result;
}
