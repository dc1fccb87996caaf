#include "OvGui/document/OvSegyWatch.h"

#include <QFileInfo>

namespace {

constexpr int settleMs = 200;

} // namespace

OvSegyWatch::OvSegyWatch(QObject* parent)
    : QObject(parent)
    , m_background(OvBackground::readPool())
{
    m_settle.setSingleShot(true);
    m_settle.setInterval(settleMs);
    connect(&m_settle, &QTimer::timeout, this, &OvSegyWatch::check);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, [this] { m_settle.start(); });
}

void OvSegyWatch::start(const QString& path, qint64 size)
{
    if (!m_watcher.files().isEmpty())
        m_watcher.removePaths(m_watcher.files());
    m_path = path;
    m_size = size;
    m_modified = QFileInfo(path).lastModified();
    m_watcher.addPath(path);
    if (m_state == Same)
        return;
    m_state = Same;
    emit stateChanged();
}

void OvSegyWatch::check()
{
    m_background.run([this, path = m_path](const OvBackground::Post& post) {
        const QFileInfo file(path);
        const bool exists = file.isFile();
        const qint64 size = exists ? file.size() : 0;
        const QDateTime modified = file.lastModified();
        post([=] { take(path, exists, size, modified); });
    });
}

void OvSegyWatch::take(const QString& path, bool exists, qint64 size, const QDateTime& modified)
{
    if (path != m_path)
        return;
    // Editors and copies put a new file in place of the old one, which ends the watching.
    if (exists && m_watcher.files().isEmpty())
        m_watcher.addPath(path);
    State state = Same;
    if (!exists)
        state = Gone;
    else if (size != m_size)
        state = size > m_size ? Grown : Shrunk;
    else if (modified != m_modified)
        state = Rewritten;
    if (state == m_state)
        return;
    m_state = state;
    emit stateChanged();
}

QString OvSegyWatch::message() const
{
    const QString name = QFileInfo(m_path).fileName();
    switch (m_state) {
    case Grown:
        return tr("%1 has grown since it was opened; the new traces are not shown yet.").arg(name);
    case Shrunk:
        return tr("%1 has become shorter since it was opened; traces behind its end cannot be "
                  "read any more.")
            .arg(name);
    case Rewritten:
        return tr("%1 was written again since it was opened; what is shown may be out of date.")
            .arg(name);
    case Gone:
        return tr("%1 was deleted or moved, or its drive is gone. What was read stays shown.")
            .arg(name);
    case Same:
        break;
    }
    return {};
}
