#include "OvSeismic/segy/OvFileMap.h"

#ifdef Q_OS_WIN

#include <limits>
#include <qt_windows.h>

namespace {

// A file on another computer can vanish while it is mapped, and the fault cannot be mended here.
bool isLocal(HANDLE file)
{
    FILE_REMOTE_PROTOCOL_INFO facts;
    return !GetFileInformationByHandleEx(file, FileRemoteProtocolInfo, &facts, sizeof(facts));
}

} // namespace

bool OvFileMap::map(qintptr handle, qint64 size)
{
    unmap();
    auto* file = reinterpret_cast<HANDLE>(handle);
    if (size <= 0 || quint64(size) > std::numeric_limits<std::size_t>::max() / 2 || !isLocal(file))
        return false;
    // A file that is mapped cannot be cut short there.
    HANDLE section = CreateFileMappingW(file, nullptr, PAGE_READONLY, 0, 0, nullptr);
    if (section == nullptr)
        return false;
    m_data = static_cast<const char*>(MapViewOfFile(section, FILE_MAP_READ, 0, 0, 0));
    CloseHandle(section);
    m_size = isMapped() ? size : 0;
    return isMapped();
}

void OvFileMap::unmap()
{
    if (isMapped())
        UnmapViewOfFile(m_data);
    m_data = nullptr;
    m_size = 0;
}

#endif
