#include "OvSegyFolder.h"

#include <QCollator>
#include <QDir>
#include <QtConcurrent>

#include <algorithm>

namespace {

constexpr int settleTimeMs = 200;

QStringList segyFilesIn(const QString& folder)
{
    QStringList files =
        QDir(folder).entryList(OvSegyFolder::nameFilters(), QDir::Files, QDir::NoSort);
    QCollator collator;
    collator.setNumericMode(true);
    std::sort(files.begin(), files.end(), collator);
    return files;
}

} // namespace

OvSegyFolder::OvSegyFolder(QObject* parent)
    : QObject(parent)
{
    // A copy that is under way changes the folder many times.
    m_delay.setSingleShot(true);
    m_delay.setInterval(settleTimeMs);
    connect(&m_delay, &QTimer::timeout, this, &OvSegyFolder::scan);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_delay,
            static_cast<void (QTimer::*)()>(&QTimer::start));
    connect(&m_scan, &QFutureWatcherBase::finished, this, &OvSegyFolder::takeResult);
}

OvSegyFolder::~OvSegyFolder() = default;

QStringList OvSegyFolder::nameFilters()
{
    return {QStringLiteral("*.sgy"), QStringLiteral("*.segy"), QStringLiteral("*.SGY"),
            QStringLiteral("*.SEGY")};
}

QString OvSegyFolder::folder() const
{
    return m_folder;
}

QStringList OvSegyFolder::files() const
{
    return m_files;
}

bool OvSegyFolder::isScanning() const
{
    return !m_known && !m_folder.isEmpty();
}

void OvSegyFolder::setFolder(const QString& folder)
{
    if (m_folder == folder)
        return;
    if (!m_watcher.directories().isEmpty())
        m_watcher.removePaths(m_watcher.directories());
    m_delay.stop();
    m_folder = folder;
    m_files.clear();
    m_known = false;
    scan();
    emit changed();
}

void OvSegyFolder::scan()
{
    if (m_folder.isEmpty()) {
        m_scan.setFuture(QFuture<QStringList>());
        return;
    }
    // Watched before it is read, so that nothing slips between.
    if (m_watcher.directories().isEmpty())
        m_watcher.addPath(m_folder);
    m_scan.setFuture(QtConcurrent::run(segyFilesIn, m_folder));
}

void OvSegyFolder::takeResult()
{
    if (m_folder.isEmpty() || m_scan.future().resultCount() == 0)
        return;
    const QStringList files = m_scan.result();
    // An open menu is not disturbed when another kind of file came or went.
    if (m_known && files == m_files)
        return;
    m_known = true;
    m_files = files;
    emit changed();
}
