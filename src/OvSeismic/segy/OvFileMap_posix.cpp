#include "OvSeismic/segy/OvFileMap.h"

#ifndef Q_OS_WIN

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <limits>
#include <mutex>
#include <sys/mman.h>
#include <unistd.h>

#ifdef Q_OS_LINUX
#include <sys/syscall.h>
#endif

namespace {

/// A map that the signal handler may mend. The handler reads begin first, so that begin is written
/// last and taken back first.
struct Slot
{
    std::atomic<quintptr> begin{0};
    std::atomic<quintptr> end{0};
    std::atomic<std::atomic<bool>*> damaged{nullptr};
};

// A fixed table: the handler can neither lock nor follow memory that comes and goes.
std::array<Slot, 256> mapSlots;
std::mutex slotMutex;
struct sigaction previousAction;
quintptr pageSize = 0;

void* zeroPage(void* place)
{
    constexpr int flags = MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED;
#ifdef Q_OS_LINUX
    // Straight to the kernel: what stands between, a sanitizer say, may not be used in a handler.
    const long result = syscall(SYS_mmap, place, pageSize, PROT_READ, flags, -1, 0L);
    return result == -1 ? MAP_FAILED : place;
#else
    return mmap(place, pageSize, PROT_READ, flags, -1, 0);
#endif
}

bool mend(void* fault)
{
    const auto address = reinterpret_cast<quintptr>(fault);
    char* page = static_cast<char*>(fault) - (address & (pageSize - 1));
    for (Slot& slot : mapSlots) {
        const quintptr begin = slot.begin.load(std::memory_order_acquire);
        if (begin == 0 || address < begin || address >= slot.end.load(std::memory_order_relaxed))
            continue;
        if (zeroPage(page) == MAP_FAILED)
            return false;
        slot.damaged.load(std::memory_order_relaxed)->store(true, std::memory_order_release);
        return true;
    }
    return false;
}

void passOn(int signal, siginfo_t* info, void* context)
{
    if ((previousAction.sa_flags & SA_SIGINFO) != 0) {
        previousAction.sa_sigaction(signal, info, context);
    } else if (previousAction.sa_handler != SIG_DFL && previousAction.sa_handler != SIG_IGN) {
        previousAction.sa_handler(signal);
    } else {
        // The instruction is tried again and fails as if nobody had been here.
        sigaction(signal, &previousAction, nullptr);
    }
}

void onBusError(int signal, siginfo_t* info, void* context)
{
    const int error = errno;
    if (!mend(info->si_addr))
        passOn(signal, info, context);
    errno = error;
}

bool installHandler()
{
    pageSize = static_cast<quintptr>(sysconf(_SC_PAGESIZE));
    struct sigaction action = {};
    action.sa_sigaction = onBusError;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK | SA_NODEFER;
    sigemptyset(&action.sa_mask);
    return sigaction(SIGBUS, &action, &previousAction) == 0;
}

int enter(const void* data, std::size_t size, std::atomic<bool>* damaged)
{
    const std::lock_guard<std::mutex> lock(slotMutex);
    static const bool installed = installHandler();
    for (std::size_t i = 0; i < mapSlots.size() && installed; ++i) {
        Slot& slot = mapSlots[i];
        if (slot.begin.load(std::memory_order_relaxed) != 0)
            continue;
        const auto begin = reinterpret_cast<quintptr>(data);
        slot.damaged.store(damaged, std::memory_order_relaxed);
        slot.end.store(begin + size, std::memory_order_relaxed);
        slot.begin.store(begin, std::memory_order_release);
        return static_cast<int>(i);
    }
    return -1;
}

void leave(int slot)
{
    const std::lock_guard<std::mutex> lock(slotMutex);
    mapSlots[static_cast<std::size_t>(slot)].begin.store(0, std::memory_order_release);
}

} // namespace

bool OvFileMap::map(qintptr handle, qint64 size)
{
    unmap();
    if (size <= 0 || quint64(size) > std::numeric_limits<std::size_t>::max() / 2)
        return false;
    const auto bytes = static_cast<std::size_t>(size);
    void* data = mmap(nullptr, bytes, PROT_READ, MAP_SHARED, static_cast<int>(handle), 0);
    if (data == MAP_FAILED)
        return false;
    m_damaged.store(false);
    m_slot = enter(data, bytes, &m_damaged);
    if (m_slot < 0) {
        munmap(data, bytes);
        return false;
    }
    m_data = static_cast<const char*>(data);
    m_size = size;
    return true;
}

void OvFileMap::unmap()
{
    if (!isMapped())
        return;
    leave(m_slot);
    munmap(const_cast<char*>(m_data), static_cast<std::size_t>(m_size));
    m_data = nullptr;
    m_size = 0;
    m_slot = -1;
}

#endif
