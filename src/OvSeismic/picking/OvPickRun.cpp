#include "OvSeismic/picking/OvPickRun.h"

#include "OvSeismic/picking/OvPickPriorBuilder.h"
#include "OvSeismic/segy/OvSegyFile.h"

#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <map>
#include <mutex>
#include <thread>

namespace {

class Texts
{
    Q_DECLARE_TR_FUNCTIONS(OvPickRun)
};

struct Picked
{
    OvStatus status;
    OvGather gather;
    OvPickResult result;
};

// The gathers between the workers and the caller: handed out in order, taken back in order, and
// never more than a few of them away at once.
class Belt
{
public:
    Belt(std::size_t total, std::size_t mostInFlight)
        : m_total(total)
        , m_mostInFlight(mostInFlight)
    {
    }

    // The next position to work on; false when there is none left or the belt has stopped.
    bool next(std::size_t* position)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_changed.wait(lock, [this] {
            return m_stopped || m_handedOut >= m_total || m_handedOut < m_taken + m_mostInFlight;
        });
        if (m_stopped || m_handedOut >= m_total)
            return false;
        *position = m_handedOut++;
        return true;
    }

    void put(std::size_t position, Picked&& picked)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_done.emplace(position, std::move(picked));
        m_changed.notify_all();
    }

    // Waits until position is done, and at most for patience.
    bool take(std::size_t position, std::chrono::milliseconds patience, Picked* picked)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        if (!m_changed.wait_for(lock, patience, [&] { return m_done.count(position) > 0; }))
            return false;
        *picked = std::move(m_done[position]);
        m_done.erase(position);
        m_taken = position + 1;
        m_changed.notify_all();
        return true;
    }

    void stop()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_stopped = true;
        m_changed.notify_all();
    }

private:
    const std::size_t m_total;
    const std::size_t m_mostInFlight;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::map<std::size_t, Picked> m_done;
    std::size_t m_handedOut = 0;
    std::size_t m_taken = 0;
    bool m_stopped = false;
};

Picked pickOne(const OvPickRun::Request& request, const OvPickSettings& settings,
               const OvPicker& picker, int ordinal, const std::atomic<bool>* cancel)
{
    Picked picked;
    try {
        picked.status = request.index->readGather(*request.file, ordinal, &picked.gather);
        if (picked.status)
            picked.result = picker.pick(picked.gather, settings, cancel);
        // Only the headers go to the caller; the samples would fill the memory while they wait.
        picked.gather.samples = {};
    } catch (const std::exception& error) {
        picked.status = OvStatus::failure(
            Texts::tr("Gather %1 of %2 cannot be picked: %3")
                .arg(ordinal + 1)
                .arg(request.file->info().path, QString::fromLocal8Bit(error.what())));
    }
    return picked;
}

// Threads that empty a belt; stopped and joined on every way out.
class Workers
{
public:
    Workers(const OvPickRun::Request& request, const std::vector<int>& gathers, std::size_t threads)
        : m_request(request)
        , m_gathers(gathers)
        , m_picker(OvPicker::create())
        , m_belt(gathers.size(), threads + 2)
    {
        for (std::size_t i = 0; i < threads; ++i)
            m_threads.emplace_back([this] { work(); });
    }

    ~Workers()
    {
        m_cancelled = true;
        m_belt.stop();
        for (std::thread& thread : m_threads)
            thread.join();
    }

    Workers(const Workers&) = delete;
    Workers& operator=(const Workers&) = delete;

    Belt& belt() { return m_belt; }

private:
    void work()
    {
        OvPickSettings settings = m_request.settings;
        std::size_t position = 0;
        while (m_belt.next(&position)) {
            Picked picked =
                pickOne(m_request, settings, *m_picker, m_gathers[position], &m_cancelled);
            const auto learned = m_request.guidedByPrevious
                                     ? OvPickRun::priorOf(picked.gather, picked.result)
                                     : nullptr;
            // A gather without picks teaches nothing; the one before it still does.
            if (learned)
                settings.prior = learned;
            m_belt.put(position, std::move(picked));
        }
    }

    const OvPickRun::Request& m_request;
    const std::vector<int>& m_gathers;
    std::unique_ptr<OvPicker> m_picker;
    Belt m_belt;
    std::atomic<bool> m_cancelled{false};
    std::vector<std::thread> m_threads;
};

std::size_t threadCount(int wanted, std::size_t gathers)
{
    const std::size_t cores = std::max(1U, std::thread::hardware_concurrency());
    const std::size_t count = wanted > 0 ? static_cast<std::size_t>(wanted) : cores;
    return std::clamp<std::size_t>(count, 1, std::max<std::size_t>(gathers, 1));
}

void leaveOut(const std::vector<int>& done, std::vector<int>* gathers)
{
    const auto isDone = [&done](int gather) {
        return std::binary_search(done.begin(), done.end(), gather);
    };
    gathers->erase(std::remove_if(gathers->begin(), gathers->end(), isDone), gathers->end());
}

bool isSet(const std::atomic<bool>* cancel)
{
    return cancel && cancel->load();
}

} // namespace

std::vector<int> OvPickRun::chosenGathers(int gatherCount, const OvPickParameters& parameters)
{
    std::vector<int> chosen;
    const int step = std::max(parameters.shotIncrement, 1);
    for (qint64 gather = 0; gather < gatherCount; gather += step) {
        if (parameters.totalShots > 0 && static_cast<int>(chosen.size()) >= parameters.totalShots)
            break;
        chosen.push_back(static_cast<int>(gather));
    }
    return chosen;
}

std::shared_ptr<const OvPickPrior> OvPickRun::priorOf(const OvGather& gather,
                                                      const OvPickResult& result)
{
    OvPickPriorBuilder builder;
    for (std::size_t row = 0; row < result.timesMs.size(); ++row)
        builder.add(gather.headers[row], static_cast<double>(result.timesMs[row]));
    return builder.build();
}

OvStatus OvPickRun::run(const Request& request, const Deliver& deliver, const Progress& progress,
                        const std::atomic<bool>* cancel)
{
    OvStatus valid = request.settings.validate();
    if (!valid)
        return valid;
    std::vector<int> gathers =
        chosenGathers(request.index->gatherCount(), request.settings.parameters);
    const int total = static_cast<int>(gathers.size());
    leaveOut(request.done, &gathers);
    const int before = total - static_cast<int>(gathers.size());
    const int threads = request.guidedByPrevious ? 1 : request.threads;
    Workers workers(request, gathers, threadCount(threads, gathers.size()));
    constexpr std::chrono::milliseconds patience(20);
    for (std::size_t position = 0; position < gathers.size(); ++position) {
        Picked picked;
        while (!isSet(cancel) && !workers.belt().take(position, patience, &picked)) {
        }
        if (isSet(cancel))
            return OvStatus::success();
        OvStatus status = picked.status ? deliver(picked.gather, picked.result) : picked.status;
        if (!status)
            return status;
        if (progress)
            progress(before + static_cast<int>(position) + 1, total);
    }
    return OvStatus::success();
}
