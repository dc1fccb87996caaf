#include "OvSeismic/segy/OvHeaderSurvey.h"

#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyTraceWords.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

using Mapping = OvTraceHeaderMapping;

// Neighbours show how channels and records count; a stride of single traces could hit the same
// channel every time.
constexpr qint64 groupSize = 64;
constexpr int progressIntervalMs = 50;
constexpr double leastLength = 1e-20;
constexpr std::array<double, 6> scalars{0.0, 1.0, 10.0, 100.0, 1000.0, 10000.0};

bool isScalar(Mapping::Quantity quantity)
{
    return quantity == Mapping::CoordinateScalar || quantity == Mapping::ElevationScalar ||
           quantity == Mapping::TimeScalar;
}

bool isStandardScalar(double value)
{
    return std::find(scalars.begin(), scalars.end(), std::abs(value)) != scalars.end();
}

/// The position in the file of the n-th trace that is looked at.
class Spread
{
public:
    Spread(qint64 traces, qint64 most)
        : m_traces(traces)
        , m_groups(std::max<qint64>(1, most / groupSize))
        , m_count(traces <= most ? traces : m_groups * groupSize)
    {
    }

    qint64 count() const { return m_count; }
    qint64 trace(qint64 n) const
    {
        if (m_count >= m_traces)
            return n;
        const qint64 group = n / groupSize;
        const auto last = static_cast<double>(m_traces - groupSize);
        const double share =
            m_groups > 1 ? static_cast<double>(group) / static_cast<double>(m_groups - 1) : 0.0;
        return static_cast<qint64>(share * last) + n % groupSize;
    }

private:
    qint64 m_traces;
    qint64 m_groups;
    qint64 m_count;
};

} // namespace

OvStatus OvHeaderSurvey::run(const OvSegyFile& file, const OvTraceHeaderMapping& mapping,
                             qint64 mostTraces, const Progress& progress)
{
    *this = {};
    m_mapping = mapping;
    OvStatus status = file.locate({}, mostTraces);
    const qint64 traces = file.locatedCount();
    const Spread spread(traces, std::max(groupSize, mostTraces));
    std::vector<char> header(static_cast<std::size_t>(mapping.extent()));
    QElapsedTimer sinceProgress;
    sinceProgress.start();
    for (qint64 n = 0; n < spread.count() && status; ++n) {
        status = file.readHeaderBytes(spread.trace(n), mapping.extent(), header.data());
        if (!status)
            break;
        add(header.data(), file.info().byteOrder);
        const bool last = n + 1 == spread.count();
        if (!progress || (!last && sinceProgress.elapsed() < progressIntervalMs))
            continue;
        sinceProgress.restart();
        if (!progress(n + 1, spread.count()))
            status = OvStatus::failure(QCoreApplication::translate("OvHeaderSurvey", "Cancelled."));
    }
    m_whole = status && m_traces == file.info().traceCount;
    if (!status)
        *this = {};
    return status;
}

void OvHeaderSurvey::add(const char* header, OvByteOrder order)
{
    std::array<double, Mapping::quantityCount> values{};
    for (int i = 0; i < Mapping::quantityCount; ++i) {
        const auto quantity = static_cast<Quantity>(i);
        values[quantity] = m_mapping.word(quantity).value(header, order);
        if (m_mapping.word(quantity).exists())
            add(quantity, values[quantity]);
    }
    const double factor = OvSegyTraceWords::factor(static_cast<qint16>(
        std::fmin(std::fmax(values[Mapping::CoordinateScalar], -32768.0), 32767.0)));
    for (const Quantity quantity :
         {Mapping::SourceX, Mapping::SourceY, Mapping::ReceiverX, Mapping::ReceiverY})
        m_largestCoordinate = std::fmax(m_largestCoordinate, std::abs(values[quantity] * factor));
    m_largestOffset = std::fmax(m_largestOffset, std::abs(values[Mapping::Offset]));
    ++m_traces;
}

void OvHeaderSurvey::add(Quantity quantity, double value)
{
    Word& word = m_words[quantity];
    ++word.count;
    if (!std::isfinite(value)) {
        ++word.invalid;
        return;
    }
    const bool first = word.count == word.invalid + 1;
    word.minimum = first ? value : std::min(word.minimum, value);
    word.maximum = first ? value : std::max(word.maximum, value);
    word.zeros += value == 0.0 ? 1 : 0;
    word.tiny += value != 0.0 && std::abs(value) < leastLength ? 1 : 0;
    word.oddScalars += isScalar(quantity) && !isStandardScalar(value) ? 1 : 0;
    if (word.values.size() < mostValues)
        word.values.insert(value);
}
