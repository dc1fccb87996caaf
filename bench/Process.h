#pragma once

#include <QFile>

#include <atomic>
#include <chrono>
#include <fcntl.h>
#include <malloc.h>
#include <thread>
#include <unistd.h>

/// What the system knows of this process and its files. Linux only, as the benchmarks are.
namespace Process {

/// Memory that no file stands behind, in bytes.
inline qint64 anonymousBytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    status.open(QIODevice::ReadOnly);
    const QByteArray text = status.readAll();
    const int at = text.indexOf("RssAnon:");
    return text.mid(at + 8, text.indexOf("kB", at) - at - 8).trimmed().toLongLong() * 1024;
}

inline qint64 tidyAnonymousBytes()
{
    malloc_trim(0);
    return anonymousBytes();
}

/// The most memory that a piece of work takes, in bytes, looked at every millisecond.
template <typename Work>
qint64 peakOf(const Work& work)
{
    const qint64 before = tidyAnonymousBytes();
    std::atomic<bool> done{false};
    std::atomic<qint64> peak{before};
    std::thread watch([&] {
        while (!done) {
            peak = qMax(peak.load(), anonymousBytes());
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    });
    work();
    peak = qMax(peak.load(), anonymousBytes());
    done = true;
    watch.join();
    return peak - before;
}

/// Takes a file out of the page cache.
inline bool forget(const QString& path)
{
    const int handle = open(QFile::encodeName(path).constData(), O_RDONLY);
    const bool good = handle >= 0 && fdatasync(handle) == 0 &&
                      posix_fadvise(handle, 0, 0, POSIX_FADV_DONTNEED) == 0;
    close(handle);
    return good;
}

/// Reads a file into the page cache.
inline bool warm(const QString& path)
{
    const int handle = open(QFile::encodeName(path).constData(), O_RDONLY);
    QByteArray block(1 << 20, '\0');
    ssize_t got = 0;
    do {
        got = read(handle, block.data(), static_cast<std::size_t>(block.size()));
    } while (got > 0);
    close(handle);
    return got == 0;
}

} // namespace Process
