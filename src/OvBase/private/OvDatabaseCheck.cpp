#include "OvBase/private/OvDatabaseCheck.h"

#include "OvBase/private/OvSchema.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

namespace {

const QString CheckConnection = QStringLiteral("OvBase-check");

QString translated(const char* text)
{
    return QCoreApplication::translate("OvDatabase", text);
}

OvStatus refuse(const char* text, const QString& path, const QString& detail = {})
{
    const QString message = translated(text).arg(QDir::toNativeSeparators(path));
    return OvStatus::failure(detail.isEmpty() ? message : message.arg(detail));
}

OvStatus damaged(const QString& path, const QString& detail)
{
    return refuse(QT_TRANSLATE_NOOP(
                      "OvDatabase",
                      "The database %1 is damaged or no database (%2). The file was left as it is; "
                      "put a backup in its place, or move it away to start with an empty one."),
                  path, detail);
}

// An account that may write everything still honours a file that its owner has protected.
bool isProtected(const QFileInfo& file)
{
    const QFile::Permissions anyWrite =
        QFile::WriteOwner | QFile::WriteUser | QFile::WriteGroup | QFile::WriteOther;
    return !file.isWritable() || !(file.permissions() & anyWrite);
}

bool hasLog(const QString& path)
{
    return QFileInfo(path + QStringLiteral("-wal")).size() > 0 ||
           QFileInfo(path + QStringLiteral("-journal")).size() > 0;
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
        return refuse(QT_TRANSLATE_NOOP("OvDatabase",
                                        "The database %1 belongs to another program. The file was "
                                        "left as it is; move it away to start with an empty one."),
                      path);
    if (version > OvSchema::latestVersion())
        return refuse(QT_TRANSLATE_NOOP("OvDatabase",
                                        "The database %1 was written by a newer version of this "
                                        "program (its layout is number %2). Use that version."),
                      path, QString::number(version));
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
    // A read-only connection does not move the write-ahead log into a file that may be damaged.
    connection.setConnectOptions(
        QStringLiteral("QSQLITE_OPEN_READONLY;QSQLITE_BUSY_TIMEOUT=20000"));
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
        return refuse(QT_TRANSLATE_NOOP("OvDatabase", "The database %1 is no file."), path);
    // The database engine would throw away the log of an empty file, and with it all data.
    if (file.size() == 0 && hasLog(path))
        return damaged(path, translated("the file is empty, its log is not"));
    if (isProtected(file))
        return refuse(
            QT_TRANSLATE_NOOP("OvDatabase", "The database %1 is read-only. Allow writing to it."),
            path);
    if (file.size() == 0)
        return OvStatus::success();
    const OvStatus status = checkWithConnection(path);
    QSqlDatabase::removeDatabase(CheckConnection);
    return status;
}
