#include "OvSegyFolder.h"

#include <QCollator>
#include <QDir>
#include <QThreadPool>

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
    , m_background(QThreadPool::globalInstance())
{
    // A copy that is under way changes the folder many times.
    m_delay.setSingleShot(true);
    m_delay.setInterval(settleTimeMs);
    connect(&m_delay, &QTimer::timeout, this, &OvSegyFolder::scan);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_delay,
            QOverload<>::of(&QTimer::start));
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
    const int scan = ++m_scan;
    if (m_folder.isEmpty())
        return;
    // Watched before it is read, so that nothing slips between.
    if (m_watcher.directories().isEmpty())
        m_watcher.addPath(m_folder);
    m_background.run([this, scan, folder = m_folder](const OvBackground::Post& post) {
        post([this, scan, files = segyFilesIn(folder)] { take(scan, files); });
    });
}

void OvSegyFolder::take(int scan, const QStringList& files)
{
    // An open menu is not disturbed when another kind of file came or went.
    if (scan != m_scan || (m_known && files == m_files))
        return;
    m_known = true;
    m_files = files;
    emit changed();
}
