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

// What keeps the engine from reading, a full disk for instance, is no damage.
OvStatus unreadable(const QString& path, const QSqlError& error)
{
    constexpr int ResultMask = 0xff;
    constexpr int ResultCorrupt = 11;
    constexpr int ResultNotADatabase = 26;
    const int code = error.nativeErrorCode().toInt() & ResultMask;
    if (code == ResultCorrupt || code == ResultNotADatabase)
        return damaged(path, OvDatabase::reason(error));
    return OvStatus::failure(
        OvDatabase::tr("The database %1 cannot be opened (%2). Check that its folder exists and "
                       "can be written, and that the disk has room.")
            .arg(QDir::toNativeSeparators(path), OvDatabase::reason(error)));
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

/// The first column of the first row; a failure goes to *error.
QVariant single(const QSqlDatabase& connection, const QString& sql, QSqlError* error)
{
    QSqlQuery query(connection);
    query.setForwardOnly(true);
    if (query.exec(sql) && query.next())
        return query.value(0);
    *error = query.lastError();
    return {};
}

OvStatus checkContents(const QSqlDatabase& connection, const QString& path)
{
    QSqlError error;
    const int version = single(connection, QStringLiteral("PRAGMA user_version"), &error).toInt();
    const int tables =
        single(connection, QStringLiteral("SELECT count(*) FROM sqlite_master"), &error).toInt();
    const int owner = single(connection, QStringLiteral("PRAGMA application_id"), &error).toInt();
    if (error.isValid())
        return unreadable(path, error);
    if (owner != OvSchema::ApplicationId && (version != 0 || tables != 0))
        return foreign(path);
    if (version > OvSchema::latestVersion())
        return newer(path, version);
    const QString verdict =
        single(connection, QStringLiteral("PRAGMA integrity_check(1)"), &error).toString();
    if (error.isValid())
        return unreadable(path, error);
    return verdict == QLatin1String("ok") ? OvStatus::success()
                                          : damaged(path, verdict.simplified());
}

OvStatus checkWithConnection(const QString& path)
{
    QSqlDatabase connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), CheckConnection);
    connection.setDatabaseName(path);
    connection.setConnectOptions(
        openMode(path) + QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(OvDatabase::patience()));
    if (!connection.open())
        return unreadable(path, connection.lastError());
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
