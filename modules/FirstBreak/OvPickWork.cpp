#include "OvPickWork.h"

#include "OvSeismic/picking/OvPickTeacher.h"
#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvTraceHeaderMapping.h"

#include <QCryptographicHash>

#include <algorithm>

namespace {

constexpr qint64 flushIntervalMs = 200;
constexpr std::size_t mostWaiting = 256;

bool isSet(const std::atomic<bool>* cancel)
{
    return cancel && *cancel;
}

} // namespace

OvFirstBreaks OvPickWork::breaksOf(const OvPickResult& result)
{
    OvFirstBreaks breaks;
    breaks.resize(static_cast<int>(result.timesMs.size()));
    for (std::size_t row = 0; row < result.timesMs.size(); ++row) {
        if (std::isnan(result.timesMs[row]))
            continue;
        breaks.timesMs[row] = result.timesMs[row];
        breaks.confidences[row] = result.confidences[row];
        breaks.states[row] = OvPickState::Automatic;
    }
    return breaks;
}

QString OvPickWork::runText(const OvPickDefine& define, const QString& gatheringText)
{
    return define.canonicalText() + QLatin1String(";gathering=") + gatheringText;
}

QString OvPickWork::gatheringText(const OvSegyIndex& index)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(index.mapping().toText().toUtf8());
    for (int gather = 0; gather < index.gatherCount(); ++gather) {
        const qint32 words[] = {index.fieldRecord(gather), index.gatherTraceCount(gather)};
        hash.addData(reinterpret_cast<const char*>(words), sizeof(words));
    }
    return QString::fromLatin1(hash.result().toHex());
}

OvStatus OvPickWork::learn(const Order& order, const OvFirstBreakFile& file,
                           const std::atomic<bool>* cancel,
                           std::shared_ptr<const OvPickPrior>* prior)
{
    using Guide = OvPickDefine::Guide;
    OvPickTeacher teacher(*order.segy, order.grouping());
    OvStatus status;
    if (order.define.guide == Guide::Picks && file.isOpen())
        status = teacher.learn(file, order.gather, cancel);
    if (order.define.guide == Guide::PreviousGather && file.isOpen() && order.gather > 0)
        status = teacher.learnGather(file, order.gather - 1);
    if (!status || isSet(cancel))
        return status;
    *prior = teacher.prior();
    if (order.define.guide == Guide::Picks && !*prior)
        return OvStatus::failure(
            tr("There are too few picks to be guided by. Pick some traces by hand, or choose "
               "another guide."));
    return status;
}

OvPickWork::OvPickWork(Order order, Stored stored)
    : m_order(std::move(order))
    , m_stored(std::move(stored))
    , m_settings(m_order.define.settings())
{
}

OvStatus OvPickWork::open()
{
    OvStatus status = m_file.open(m_order.firstBreakPath, m_order.segy->info());
    if (status)
        status = m_file.upgrade(*m_order.segy, *m_order.index);
    if (status)
        status = m_file.noteMapping(m_order.index->mapping().toText());
    // A run that the machine takes down with it goes on from its last gather that was stored.
    return status && m_order.gather < 0 ? m_file.relaxDurability() : status;
}

OvStatus OvPickWork::startRun(std::vector<int>* done)
{
    const QString text = runText(m_order.define, gatheringText(*m_order.index));
    const int gathers = static_cast<int>(
        OvPickRun::chosenGathers(m_order.index->gatherCount(), m_settings.parameters).size());
    OvFirstBreakRun run;
    OvStatus status = m_order.resume ? m_file.readRun(&run) : OvStatus();
    if (!status)
        return status;
    if (run.settings != text || run.gathers != gathers)
        return m_file.beginRun(text, gathers);
    *done = run.done;
    return status;
}

OvStatus OvPickWork::run(const OvPickRun::Progress& progress, const std::atomic<bool>* cancel)
{
    m_sinceFlush.start();
    OvStatus status = open();
    if (!status)
        return status;
    if (!m_settings.prior)
        status = learn(m_order, m_file, cancel, &m_settings.prior);
    if (status && !isSet(cancel))
        status = m_order.gather < 0 ? pickAll(progress, cancel) : pickOne(cancel);
    return status;
}

OvStatus OvPickWork::pickAll(const OvPickRun::Progress& progress, const std::atomic<bool>* cancel)
{
    OvPickRun::Request request;
    request.file = m_order.segy;
    request.index = m_order.index.get();
    request.settings = m_settings;
    request.guidedByPrevious = m_order.define.guide == OvPickDefine::Guide::PreviousGather;
    OvStatus status = startRun(&request.done);
    if (status && request.guidedByPrevious && !request.done.empty()) {
        Order last = m_order;
        last.gather = request.done.back() + 1;
        status = learn(last, m_file, cancel, &request.settings.prior);
    }
    if (!status)
        return status;
    status = OvPickRun::run(
        request,
        [this](const OvGather& gather, const OvPickResult& result) { return take(gather, result); },
        progress, cancel);
    const OvStatus flushed = flush();
    if (status && flushed && !isSet(cancel))
        return m_file.endRun();
    return status ? flushed : status;
}

OvStatus OvPickWork::pickOne(const std::atomic<bool>* cancel)
{
    OvGather gather;
    OvStatus status = m_order.grouping().readGather(*m_order.segy, m_order.gather, &gather);
    if (!status || isSet(cancel))
        return status;
    const OvPickResult result = OvPicker::create()->pick(gather, m_settings, cancel);
    if (isSet(cancel))
        return status;
    status = take(gather, result);
    return status ? flush() : status;
}

OvStatus OvPickWork::take(const OvGather& gather, const OvPickResult& result)
{
    OvFirstBreakUpdate update;
    update.traces = m_order.grouping().gatherTraces(gather.ordinal);
    update.breaks = breaksOf(result);
    update.keepManual = m_order.keepManualPicks;
    update.wantsBefore = m_order.gather >= 0;
    update.doneGather = m_order.gather < 0 ? gather.ordinal : -1;
    m_waiting.push_back(std::move(update));
    const bool due = m_sinceFlush.elapsed() >= flushIntervalMs || m_waiting.size() >= mostWaiting;
    return due ? flush() : OvStatus::success();
}

OvStatus OvPickWork::flush()
{
    m_sinceFlush.restart();
    if (m_waiting.empty())
        return OvStatus::success();
    OvStatus status = m_file.write(&m_waiting);
    if (status)
        m_stored(std::move(m_waiting));
    m_waiting.clear();
    return status;
}
