#pragma once

#include "OvSeismic/OvStatus.h"
#include "OvSeismic/segy/OvFileMap.h"

#include <QString>

#include <vector>

/// A regular file opened for reading at positions, without a file pointer: its const operations may
/// be called from several threads at once.
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

    /// The bytes themselves, without a copy; null where the file is not mapped or has been found
    /// cut short. What was read there counts only once isIntact() has said so.
    const char* mapped(qint64 offset, qint64 count) const;
    /// Whether all that was read through mapped() was in the file, which still reaches to end.
    bool isIntact(qint64 end) const;
    /// Calls use(const char*) with count bytes from offset: those of the map or, read into *buffer,
    /// of the file. A file that is cut short meanwhile makes a second call, with what a read gave,
    /// or a failure.
    template <typename Use>
    OvStatus withBytes(qint64 offset, qint64 count, std::vector<char>* buffer, const Use& use) const
    {
        if (const char* bytes = mapped(offset, count)) {
            use(bytes);
            if (isIntact(offset + count))
                return {};
        }
        buffer->resize(static_cast<std::size_t>(count));
        OvStatus status = read(offset, buffer->data(), count);
        if (status)
            use(static_cast<const char*>(buffer->data()));
        return status;
    }

    /// Bytes in the file now; -1 when nobody knows.
    qint64 sizeNow() const;
    /// When the file was last changed, in ns of the system's clock, when it was opened and now.
    qint64 modifiedNs() const { return m_modifiedNs; }
    qint64 modifiedNowNs() const;

private:
    struct Facts
    {
        qint64 size;
        qint64 modifiedNs;
    };
    Facts factsNow() const;
    qint64 readSome(qint64 offset, char* out, qint64 count) const;

    QString m_path;
    qint64 m_size = 0;
    qint64 m_modifiedNs = 0;
    qintptr m_handle = -1;
    OvFileMap m_map;
};
