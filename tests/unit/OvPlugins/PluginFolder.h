#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

/// A folder of its own for copies of the fixture plug-ins.
class PluginFolder
{
public:
    QString path() const { return QDir(m_folder.path()).canonicalPath(); }

    /// Copies a fixture to a sub-folder and returns the copy's path; empty when that fails.
    QString add(const QString& fixture, const QString& subFolder)
    {
        const QString source =
            QDir(QString::fromLocal8Bit(qgetenv("TARNPICK_BUILD_DIR")))
                .filePath(QStringLiteral("tests/plugins/") + fixture + QStringLiteral(".so"));
        const QString copy = place(subFolder).filePath(fixture + QStringLiteral(".so"));
        return QFile::copy(source, copy) ? copy : QString();
    }

    /// Writes a file of another kind.
    QString write(const QString& name, const QByteArray& content, const QString& subFolder)
    {
        QFile file(place(subFolder).filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            return {};
        return file.fileName();
    }

private:
    QDir place(const QString& subFolder) const
    {
        QDir(path()).mkpath(subFolder);
        return QDir(QDir(path()).filePath(subFolder));
    }

    QTemporaryDir m_folder;
};
