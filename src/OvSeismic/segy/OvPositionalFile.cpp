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
    return {};
}

void OvPositionalFile::close()
{
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
    return {};
}

void OvPositionalFile::close()
{
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

#endif
