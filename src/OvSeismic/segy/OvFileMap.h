#pragma once

#include <QtGlobal>

#include <atomic>

/// A whole file in the address space, for reading.
///
/// Survives the file being cut short by another program: where the system would end the process, a
/// page of zeros takes the place of what is gone, and isDamaged() says so from then on. Whoever has
/// read through data() must therefore ask isDamaged() before believing what was read. Reading is
/// for any number of threads; map(), unmap() for one that has the object to itself.
class OvFileMap
{
public:
    OvFileMap() = default;
    ~OvFileMap() { unmap(); }
    OvFileMap(const OvFileMap&) = delete;
    OvFileMap& operator=(const OvFileMap&) = delete;

    /// Maps size bytes of an open file (a descriptor; on Windows a HANDLE), which may be closed
    /// afterwards. False where that is not possible or not wise: too large for the address space,
    /// on another computer, too many maps. The file is then to be read instead.
    bool map(qintptr handle, qint64 size);
    void unmap();

    bool isMapped() const { return m_data != nullptr; }
    const char* data() const { return m_data; }
    qint64 size() const { return m_size; }
    bool isDamaged() const { return m_damaged.load(std::memory_order_acquire); }

private:
    const char* m_data = nullptr;
    qint64 m_size = 0;
    std::atomic<bool> m_damaged{false};
    int m_slot = -1;
};
