#pragma once

#include "OvGui/document/OvBackground.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QStringList>
#include <QTimer>

/// The names of the SEG-Y files in a folder, kept up to date. GUI thread; the folder is read by a
/// worker.
class OvSegyFolder : public QObject
{
    Q_OBJECT

public:
    explicit OvSegyFolder(QObject* parent = nullptr);
    ~OvSegyFolder() override;

    QString folder() const;
    /// An empty path stands for no folder.
    void setFolder(const QString& folder);
    /// Whether the folder has not been read to its end yet.
    bool isScanning() const;
    /// File names without path, in the order in which people count.
    QStringList files() const;

    /// Wild cards of SEG-Y files, for any case of letters.
    static QStringList nameFilters();

signals:
    void changed();

private:
    void scan();
    void take(int scan, const QStringList& files);

    QString m_folder;
    QStringList m_files;
    bool m_known = false; ///< whether m_files tells of m_folder
    QFileSystemWatcher m_watcher;
    QTimer m_delay;
    OvBackground m_background;
    int m_scan = 0; ///< the latest; the outcome of an earlier one is dropped
};
