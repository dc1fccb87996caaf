#include "OvBase/private/OvDatabaseCheck.h"

#include "OvBase/private/OvDatabase.h"
#include "OvBase/private/OvSchema.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

namespace {

const QString CheckConnection = QStringLiteral("OvBase-check");

OvStatus damaged(const QString& path, const QString& detail)
{
    return OvStatus::failure(
        OvDatabase::tr(
            "The database %1 is damaged or no database (%2). It was left as it is; put a "
            "backup in its place, or move it away to start with an empty one.")
            .arg(QDir::toNativeSeparators(path), detail.trimmed()));
}

OvStatus foreign(const QString& path)
{
    return OvStatus::failure(
        OvDatabase::tr("The database %1 belongs to another program. It was left as it is; move it "
                       "away to start with an empty one.")
            .arg(QDir::toNativeSeparators(path)));
}

OvStatus newer(const QString& path, int version)
{
    return OvStatus::failure(
        OvDatabase::tr("The database %1 was written by a newer version of this program (its layout "
                       "is number %2). It was left as it is; open it with that version.")
            .arg(QDir::toNativeSeparators(path), QString::number(version)));
}

OvStatus readOnly(const QString& path)
{
    return OvStatus::failure(
        OvDatabase::tr("The database %1 is read-only. Allow writing to the file and its folder.")
            .arg(QDir::toNativeSeparators(path)));
}

// An account that may write everything still honours a file that its owner has protected.
bool isProtected(const QFileInfo& file)
{
    const QFile::Permissions anyWrite = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    return !file.isWritable() || !(file.permissions() & anyWrite);
}

qint64 sizeOf(const QString& path)
{
    return QFileInfo(path).size();
}

/// A read-only connection does not move the write-ahead log into a file that may be damaged. Only
/// one that may write, though, can take back what a killed program left half done in the older
/// journal.
QString openMode(const QString& path)
{
    return sizeOf(path + QStringLiteral("-journal")) > 0 ? QString()
                                                         : QStringLiteral("QSQLITE_OPEN_READONLY;");
}

/// The first column of the first row; the error text goes to *error.
QVariant single(const QSqlDatabase& connection, const QString& sql, QString* error)
{
    QSqlQuery query(connection);
    query.setForwardOnly(true);
    if (query.exec(sql) && query.next())
        return query.value(0);
    *error = query.lastError().text();
    return {};
}

OvStatus checkContents(const QSqlDatabase& connection, const QString& path)
{
    QString error;
    const int version = single(connection, QStringLiteral("PRAGMA user_version"), &error).toInt();
    const int tables =
        single(connection, QStringLiteral("SELECT count(*) FROM sqlite_master"), &error).toInt();
    const int owner = single(connection, QStringLiteral("PRAGMA application_id"), &error).toInt();
    if (!error.isEmpty())
        return damaged(path, error);
    if (owner != OvSchema::ApplicationId && (version != 0 || tables != 0))
        return foreign(path);
    if (version > OvSchema::latestVersion())
        return newer(path, version);
    const QString verdict =
        single(connection, QStringLiteral("PRAGMA integrity_check(1)"), &error).toString();
    if (verdict != QLatin1String("ok"))
        return damaged(path, error.isEmpty() ? verdict.simplified() : error);
    return OvStatus::success();
}

OvStatus checkWithConnection(const QString& path)
{
    QSqlDatabase connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), CheckConnection);
    connection.setDatabaseName(path);
    connection.setConnectOptions(openMode(path) + QStringLiteral("QSQLITE_BUSY_TIMEOUT=20000"));
    if (!connection.open())
        return damaged(path, connection.lastError().text());
    return checkContents(connection, path);
}

} // namespace

OvStatus OvDatabaseCheck::check(const QString& path)
{
    const QFileInfo file(path);
    if (!file.exists())
        return OvStatus::success();
    if (!file.isFile())
        return damaged(path, OvDatabase::tr("it is no file"));
    // The database engine would throw away the log of an empty file, and with it all data.
    if (file.size() == 0 && sizeOf(path + QStringLiteral("-wal")) > 0)
        return damaged(path, OvDatabase::tr("the file is empty, its log is not"));
    if (isProtected(file) || !QFileInfo(file.path()).isWritable())
        return readOnly(path);
    if (file.size() == 0)
        return OvStatus::success();
    OvStatus status = checkWithConnection(path);
    QSqlDatabase::removeDatabase(CheckConnection);
    return status;
}
