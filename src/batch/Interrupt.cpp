#include "Interrupt.h"

#include <csignal>

namespace {

std::atomic<bool> interrupted{false};
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler may not wait for a lock");

extern "C" void noteSignal(int number)
{
    interrupted = true;
    std::signal(number, SIG_DFL);
}

} // namespace

Interrupt::Interrupt()
{
    interrupted = false;
    std::signal(SIGINT, noteSignal);
    std::signal(SIGTERM, noteSignal);
}

Interrupt::~Interrupt()
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
}

const std::atomic<bool>* Interrupt::flag()
{
    return &interrupted;
}
