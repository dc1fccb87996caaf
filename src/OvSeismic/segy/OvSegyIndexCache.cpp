#include "OvSeismic/segy/OvSegyIndexCache.h"

#include "OvSeismic/segy/OvPositionalFile.h"
#include "OvSeismic/segy/OvSegyFile.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QSaveFile>

#include <filesystem>
#include <new>

namespace {

const QString suffix = QStringLiteral(".segyindex");

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(OvSegyIndexCache)

public:
    static OvStatus cannotWrite(const QString& path, const QString& reason)
    {
        return OvStatus::failure(
            tr("Cannot keep the header index %1: %2").arg(QDir::toNativeSeparators(path), reason));
    }
    static OvStatus otherFile(const QString& path)
    {
        return OvStatus::failure(
            tr("The header index %1 belongs to another state of its file; it is made anew.")
                .arg(QDir::toNativeSeparators(path)));
    }
};

// Whoever was about to write such a file has given up.
bool isAbandoned(const QFileInfo& entry)
{
    return !entry.fileName().endsWith(suffix) &&
           entry.lastModified().daysTo(QDateTime::currentDateTime()) > 1;
}

// The time of change is the time of use. Where it cannot be set, the oldest goes first.
void markUsed(const QString& path)
{
    namespace fs = std::filesystem;
#ifdef Q_OS_WIN
    const fs::path native(path.toStdWString());
#else
    const fs::path native(QFile::encodeName(path).toStdString());
#endif
    std::error_code ignored;
    fs::last_write_time(native, fs::file_time_type::clock::now(), ignored);
}

} // namespace

OvSegyIndexCache::OvSegyIndexCache(const QString& folder)
    : OvSegyIndexCache(folder, Limits())
{
}

OvSegyIndexCache::OvSegyIndexCache(const QString& folder, const Limits& limits)
    : m_folder(folder)
    , m_limits(limits)
{
}

QString OvSegyIndexCache::pathFor(const QString& segyPath,
                                  const OvTraceHeaderMapping& mapping) const
{
    const QString canonical = QFileInfo(segyPath).canonicalFilePath();
    const QByteArray name = (canonical + '\n' + mapping.toText()).toUtf8();
    const QByteArray hash = QCryptographicHash::hash(name, QCryptographicHash::Sha1).toHex();
    return QDir(m_folder).filePath(QString::fromLatin1(hash) + suffix);
}

OvStatus OvSegyIndexCache::obtain(const OvSegyFile& file, const OvTraceHeaderMapping& mapping,
                                  const OvSegyIndex::Progress& progress, OvSegyIndex* index) const
{
    OvStatus loaded = load(file, mapping, index);
    if (loaded && index->traceCount() > 0)
        return loaded;
    if (!loaded)
        qInfo("%s", qPrintable(loaded.message()));
    OvStatus built = index->build(file, mapping, progress);
    if (!built)
        return built;
    const OvStatus saved = save(file, *index);
    if (!saved)
        qInfo("%s", qPrintable(saved.message()));
    return built;
}

OvStatus OvSegyIndexCache::load(const OvSegyFile& file, const OvTraceHeaderMapping& mapping,
                                OvSegyIndex* index) const
{
    *index = OvSegyIndex();
    const QString path = pathFor(file.info().path, mapping);
    if (m_folder.isEmpty() || !QFileInfo(path).isFile())
        return {};
    OvStatus status = loadFrom(path, file, mapping, index);
    if (status)
        markUsed(path);
    else
        *index = OvSegyIndex();
    return status;
}

OvStatus OvSegyIndexCache::loadFrom(const QString& path, const OvSegyFile& file,
                                    const OvTraceHeaderMapping& mapping, OvSegyIndex* index) const
{
    Key key;
    OvPositionalFile kept;
    OvStatus status = keyOf(file, mapping, &key);
    if (status)
        status = kept.open(path);
    if (!status)
        return status;
    OvStatus decoded;
    QByteArray locator;
    std::vector<char> buffer;
    try {
        status = kept.withBytes(0, kept.size(), &buffer, [&](const char* bytes) {
            decoded = decode(bytes, kept.size(), key, index, &locator);
        });
    } catch (const std::bad_alloc&) {
        return Text::otherFile(path);
    }
    if (!status || !decoded)
        return status ? decoded : status;
    if (!locator.isEmpty() && !file.restoreLocator(locator))
        return Text::otherFile(path);
    return index->traceCount() == file.locatedCount() ? status : Text::otherFile(path);
}

OvStatus OvSegyIndexCache::save(const OvSegyFile& file, const OvSegyIndex& index) const
{
    const bool unchanged = file.bytes().sizeNow() == file.bytes().size() &&
                           file.bytes().modifiedNowNs() == file.bytes().modifiedNs();
    if (m_folder.isEmpty() || !unchanged || index.traceCount() < m_limits.smallestTraces ||
        index.traceCount() != file.locatedCount())
        return {};
    const QString path = pathFor(file.info().path, index.mapping());
    Key key;
    OvStatus status = keyOf(file, index.mapping(), &key);
    if (!status)
        return status;
    QDir().mkpath(m_folder);
    QSaveFile out(path);
    try {
        const std::vector<char> bytes = encode(index, key, file.savedLocator());
        const auto size = static_cast<qint64>(bytes.size());
        const bool written =
            out.open(QIODevice::WriteOnly) && out.write(bytes.data(), size) == size && out.commit();
        if (!written)
            return Text::cannotWrite(path, out.errorString());
    } catch (const std::bad_alloc&) {
        return Text::cannotWrite(path, Text::tr("there is not enough memory."));
    }
    cleanUp();
    return status;
}

void OvSegyIndexCache::cleanUp() const
{
    const QDir folder(m_folder);
    const QFileInfoList entries =
        folder.entryInfoList({'*' + suffix + '*'}, QDir::Files | QDir::Hidden, QDir::Time);
    qint64 bytes = 0;
    int files = 0;
    for (const QFileInfo& entry : entries) { // used last first
        bytes += entry.size();
        ++files;
        const bool beyond = files > 1 && (bytes > m_limits.bytes || files > m_limits.files);
        if (beyond || isAbandoned(entry))
            QFile::remove(entry.filePath());
    }
}
