#pragma once

#include <atomic>

/// Turns Ctrl+C and a request to end into a flag while it lives, so that a command can leave its
/// output as it was. The second Ctrl+C ends the program as usual. One at a time.
class Interrupt
{
public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    static const std::atomic<bool>* flag();
};
