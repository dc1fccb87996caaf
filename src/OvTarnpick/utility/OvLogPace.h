#pragma once

class QObject;

/// Keeps threads that log without pause from running far ahead of the thread that shows their
/// lines, which would be deaf to its user until it had caught up.
namespace OvLogPace {

/// Called by the logging thread after each message that it has queued for reader's thread. A thread
/// may be up to 64 messages ahead; then it waits, at most half a second, in case the reader's
/// thread itself waits for it. A thread that has waited in vain does not wait again until its
/// messages have been read. Never waits in reader's own thread.
void keep(QObject* reader);

} // namespace OvLogPace
