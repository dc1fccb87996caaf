#include "OvSeismic/segy/OvPositionalFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(OvSegyFile)

public:
    static OvStatus failure(const QString& path, const QString& reason)
    {
        return OvStatus::failure(
            tr("Cannot open %1: %2").arg(QDir::toNativeSeparators(path), reason));
    }
    static QString notRegular() { return tr("it is not a regular file."); }
    static QString isFolder() { return tr("it is a folder."); }
    static OvStatus readFailure(const QString& path, qint64 offset, const QString& reason)
    {
        return OvStatus::failure(
            tr("Cannot read %1 at byte %2: %3")
                .arg(QDir::toNativeSeparators(path), QString::number(offset), reason));
    }
    static QString ended()
    {
        return tr("the file is shorter than when it was opened. Open it again.");
    }
};

QString systemError()
{
#ifdef Q_OS_WIN
    const auto code = static_cast<int>(GetLastError());
#else
    const int code = errno;
#endif
    return qt_error_string(code) + QLatin1Char('.');
}

#ifndef Q_OS_WIN
qint64 changeTimeNs(const struct stat& facts)
{
#ifdef Q_OS_DARWIN
    const timespec& time = facts.st_mtimespec;
#else
    const timespec& time = facts.st_mtim;
#endif
    constexpr qint64 second = 1000000000;
    return qint64(time.tv_sec) * second + qint64(time.tv_nsec);
}
#endif

} // namespace

OvPositionalFile::~OvPositionalFile()
{
    close();
}

bool OvPositionalFile::isOpen() const
{
    return m_handle != -1;
}

OvStatus OvPositionalFile::read(qint64 offset, void* out, qint64 count) const
{
    auto* bytes = static_cast<char*>(out);
    for (qint64 done = 0; done < count;) {
        const qint64 got = readSome(offset + done, bytes + done, count - done);
        if (got < 0)
            return Text::readFailure(m_path, offset + done, systemError());
        if (got == 0)
            return Text::readFailure(m_path, offset + done, Text::ended());
        done += got;
    }
    return {};
}

const char* OvPositionalFile::mapped(qint64 offset, qint64 count) const
{
    const bool inside = offset >= 0 && count >= 0 && count <= m_map.size() - offset;
    return inside && m_map.isMapped() && !m_map.isDamaged() ? m_map.data() + offset : nullptr;
}

bool OvPositionalFile::isIntact(qint64 end) const
{
    // The rest of a file's last page reads as zeros without a fault: its size has to be asked for.
    return !m_map.isDamaged() && sizeNow() >= end;
}

qint64 OvPositionalFile::sizeNow() const
{
    return factsNow().size;
}

qint64 OvPositionalFile::modifiedNowNs() const
{
    return factsNow().modifiedNs;
}

#ifdef Q_OS_WIN

OvStatus OvPositionalFile::open(const QString& path)
{
    close();
    const std::wstring name = QDir::toNativeSeparators(path).toStdWString();
    const DWORD share = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    HANDLE handle = CreateFileW(name.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return Text::failure(path, systemError());
    LARGE_INTEGER size;
    if (GetFileType(handle) != FILE_TYPE_DISK || !GetFileSizeEx(handle, &size)) {
        CloseHandle(handle);
        return Text::failure(path, Text::notRegular());
    }
    m_handle = reinterpret_cast<qintptr>(handle);
    m_path = path;
    m_size = size.QuadPart;
    m_modifiedNs = modifiedNowNs();
    m_map.map(m_handle, m_size);
    return {};
}

void OvPositionalFile::close()
{
    m_map.unmap();
    if (isOpen())
        CloseHandle(reinterpret_cast<HANDLE>(m_handle));
    m_handle = -1;
    m_size = 0;
}

qint64 OvPositionalFile::readSome(qint64 offset, char* out, qint64 count) const
{
    OVERLAPPED where = {};
    where.Offset = static_cast<DWORD>(offset & 0xFFFFFFFF);
    where.OffsetHigh = static_cast<DWORD>(offset >> 32);
    DWORD got = 0;
    const auto wanted = static_cast<DWORD>(qMin<qint64>(count, 1 << 30));
    if (!ReadFile(reinterpret_cast<HANDLE>(m_handle), out, wanted, &got, &where))
        return GetLastError() == ERROR_HANDLE_EOF ? 0 : -1;
    return got;
}

void OvPositionalFile::prefetch(qint64, qint64) const {}

OvPositionalFile::Facts OvPositionalFile::factsNow() const
{
    BY_HANDLE_FILE_INFORMATION facts;
    if (!GetFileInformationByHandle(reinterpret_cast<HANDLE>(m_handle), &facts))
        return {-1, -1};
    const auto join = [](DWORD high, DWORD low) { return (qint64(high) << 32) | qint64(low); };
    constexpr qint64 tickNs = 100;
    return {join(facts.nFileSizeHigh, facts.nFileSizeLow),
            join(facts.ftLastWriteTime.dwHighDateTime, facts.ftLastWriteTime.dwLowDateTime) *
                tickNs};
}

#else

OvStatus OvPositionalFile::open(const QString& path)
{
    close();
    // Without O_NONBLOCK, opening a pipe waits until somebody writes to it.
    const int handle =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (handle < 0)
        return Text::failure(path, systemError());
    struct stat facts = {};
    const bool known = fstat(handle, &facts) == 0;
    if (!known || !S_ISREG(facts.st_mode)) {
        const bool folder = known && S_ISDIR(facts.st_mode);
        ::close(handle);
        return Text::failure(path, folder ? Text::isFolder() : Text::notRegular());
    }
    m_handle = handle;
    m_path = path;
    m_size = facts.st_size;
    m_modifiedNs = changeTimeNs(facts);
    m_map.map(m_handle, m_size);
    return {};
}

void OvPositionalFile::close()
{
    m_map.unmap();
    if (isOpen())
        ::close(static_cast<int>(m_handle));
    m_handle = -1;
    m_size = 0;
}

qint64 OvPositionalFile::readSome(qint64 offset, char* out, qint64 count) const
{
    const auto wanted = static_cast<std::size_t>(qMin<qint64>(count, 1 << 30));
    ssize_t got = 0;
    do {
        got = pread(static_cast<int>(m_handle), out, wanted, offset);
    } while (got < 0 && errno == EINTR);
    return got;
}

void OvPositionalFile::prefetch(qint64 offset, qint64 count) const
{
#ifdef POSIX_FADV_WILLNEED
    posix_fadvise(static_cast<int>(m_handle), offset, count, POSIX_FADV_WILLNEED);
#else
    Q_UNUSED(offset)
    Q_UNUSED(count)
#endif
}

OvPositionalFile::Facts OvPositionalFile::factsNow() const
{
    struct stat facts = {};
    if (fstat(static_cast<int>(m_handle), &facts) != 0)
        return {-1, -1};
    return {facts.st_size, changeTimeNs(facts)};
}

#endif
