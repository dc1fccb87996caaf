#include "OvGui/document/OvGatherReader.h"

#include <QFileInfo>

namespace {

constexpr std::size_t cacheBytes = 128U << 20U;
constexpr std::size_t largestGatherBytes = 1U << 30U;
constexpr int parallelReads = 2;
constexpr double mebibyte = 1024.0 * 1024.0;

std::size_t sampleBytes(const OvSegyFile& file, const OvSegyIndex& index, int gather)
{
    return static_cast<std::size_t>(index.gatherTraceCount(gather)) *
           static_cast<std::size_t>(file.info().sampleCount) * sizeof(float);
}

} // namespace

OvGatherReader::OvGatherReader(std::shared_ptr<const OvSegyFile> file, QObject* parent)
    : QObject(parent)
    , m_file(std::move(file))
    , m_index(std::make_shared<const OvSegyIndex>())
    , m_cache(cacheBytes)
    , m_background(OvBackground::readPool())
{
}

void OvGatherReader::setIndex(std::shared_ptr<const OvSegyIndex> index)
{
    m_index = std::move(index);
    m_cache.clear();
}

std::shared_ptr<const OvGather> OvGatherReader::cached(int gather)
{
    return m_cache.find(gather);
}

void OvGatherReader::request(int gather)
{
    const auto data = m_cache.find(gather);
    if (data) {
        answer(gather, data, {});
        return;
    }
    const QString reason = refusal(gather);
    if (!reason.isEmpty()) {
        answer(gather, nullptr, reason);
        return;
    }
    if (m_reading.contains(gather))
        return;
    m_waiting.removeOne(gather);
    m_waiting.append(gather);
    startReads();
}

QString OvGatherReader::refusal(int gather) const
{
    const QString name = QFileInfo(m_file->info().path).fileName();
    if (gather < 0 || gather >= m_index->gatherCount())
        return tr("%1 has no gather %2.").arg(name).arg(gather + 1);
    const std::size_t bytes = sampleBytes(*m_file, *m_index, gather);
    if (bytes <= largestGatherBytes)
        return {};
    return tr("Gather %1 of %2 takes %3 MiB, too much to show at once. Sort the file into gathers "
              "of "
              "one shot each.")
        .arg(gather + 1)
        .arg(name)
        .arg(static_cast<double>(bytes) / mebibyte, 0, 'f', 0);
}

void OvGatherReader::answer(int gather, const std::shared_ptr<const OvGather>& data,
                            const QString& message)
{
    m_background.poster()([this, gather, data, message] { emit loaded(gather, data, message); });
}

void OvGatherReader::startReads()
{
    while (m_reading.size() < parallelReads && !m_waiting.isEmpty())
        read(m_waiting.takeLast());
}

void OvGatherReader::read(int gather)
{
    m_reading.insert(gather);
    m_background.run(
        [this, gather, file = m_file, index = m_index](const OvBackground::Post& post) {
            auto data = std::make_shared<OvGather>();
            const OvStatus status = index->readGather(*file, gather, data.get());
            const std::shared_ptr<const OvGather> result = status ? data : nullptr;
            post([=] { take(gather, index, result, status.message()); });
            // Whoever pages goes on to the next one, or back.
            for (const int neighbour : {gather + 1, gather - 1})
                index->prefetchGather(*file, neighbour);
        });
}

void OvGatherReader::take(int gather, const Index& index,
                          const std::shared_ptr<const OvGather>& data, const QString& message)
{
    m_reading.remove(gather);
    if (index != m_index) {
        request(gather);
        startReads();
        return;
    }
    if (data)
        m_cache.insert(gather, data);
    startReads();
    emit loaded(gather, data, message);
}
