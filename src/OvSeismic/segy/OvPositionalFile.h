#pragma once

#include "OvSeismic/OvStatus.h"

#include <QString>

/// A regular file opened for reading at positions, without a file pointer: read() may be called
/// from several threads at once. It reads rather than maps, because a mapped file that another
/// program cuts short kills the process.
class OvPositionalFile
{
public:
    OvPositionalFile() = default;
    ~OvPositionalFile();
    OvPositionalFile(const OvPositionalFile&) = delete;
    OvPositionalFile& operator=(const OvPositionalFile&) = delete;

    /// Refuses folders, pipes and devices without waiting for them. The message names path.
    OvStatus open(const QString& path);
    void close();
    bool isOpen() const;
    /// Bytes in the file when it was opened.
    qint64 size() const { return m_size; }

    /// Exactly count bytes from offset; a failure when the file now ends before, or cannot be read.
    OvStatus read(qint64 offset, void* out, qint64 count) const;
    /// Tells the system that a range is read soon. May do nothing.
    void prefetch(qint64 offset, qint64 count) const;

private:
    qint64 readSome(qint64 offset, char* out, qint64 count) const;

    QString m_path;
    qint64 m_size = 0;
    qintptr m_handle = -1;
};
