#pragma once

#include "OvGui/OvGuiExport.h"
#include "OvGui/document/OvBackground.h"

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

/// Notices that a file which was opened has become another one: by the system's notices, which
/// network shares do not send, and when check() is called. GUI thread; the file is looked at in a
/// worker.
class OVGUI_EXPORT OvSegyWatch : public QObject
{
    Q_OBJECT

public:
    enum State { Same, Grown, Shrunk, Rewritten, Gone };

    explicit OvSegyWatch(QObject* parent = nullptr);

    /// From now on the file as it is is the one that is there.
    void start(const QString& path, qint64 size);
    State state() const { return m_state; }
    /// What has become of the file, for the user; empty while it is the same.
    QString message() const;

public slots:
    void check();

signals:
    void stateChanged();

private:
    void take(const QString& path, bool exists, qint64 size, const QDateTime& modified);

    QString m_path;
    qint64 m_size = 0;
    QDateTime m_modified;
    State m_state = Same;
    QFileSystemWatcher m_watcher;
    QTimer m_settle; // a file that is being written changes many times
    OvBackground m_background;
};
