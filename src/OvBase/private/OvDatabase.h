#pragma once

#include "OvBase/OvBaseExport.h"
#include "OvSeismic/OvStatus.h"

#include <QCoreApplication>
#include <QHash>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariantList>

#include <functional>
#include <memory>

/// One run of a kept statement. Ends the read with its life, so that no transaction stays open.
class OvStatement
{
public:
    OvStatement(std::shared_ptr<QSqlQuery> query, bool executed)
        : m_query(std::move(query))
        , m_executed(executed)
    {
    }
    ~OvStatement() { m_query->finish(); }
    Q_DISABLE_COPY(OvStatement)

    /// False when it could not be run, or a row of it could not be read.
    bool ok() const { return m_executed && !m_query->lastError().isValid(); }
    bool next() { return m_executed && m_query->next(); }
    QVariant value(int column) const { return m_query->value(column); }
    int affectedRows() const { return m_executed ? m_query->numRowsAffected() : 0; }
    QString errorText() const;

private:
    std::shared_ptr<QSqlQuery> m_query;
    bool m_executed;
};

/// A connection to the program's database. GUI thread.
///
/// Several processes may have the same file open: readers never wait, writers wait for each other.
/// A write whose status is success has reached the disk.
class OVBASE_EXPORT OvDatabase
{
    Q_DECLARE_TR_FUNCTIONS(OvDatabase)

public:
    OvDatabase();
    ~OvDatabase();
    Q_DISABLE_COPY(OvDatabase)

    /// Opens the database at path and brings its schema up to date; a missing file, or one of no
    /// bytes without a log beside it, becomes a new database. What is no database of this program,
    /// is damaged, read-only or newer is refused, and the file stays as it is.
    OvStatus open(const QString& path);
    QString path() const { return m_path; }

    /// Why the engine refused, in words for a user.
    static QString reason(const QSqlError& error);
    /// How long a statement waits for another program's writing, for databases opened from now on;
    /// ms, 20000 at first.
    static void setPatience(int milliseconds);
    static int patience();

    /// Runs the kept statement of that text with values for its placeholders.
    std::unique_ptr<OvStatement> run(const QString& sql, const QVariantList& values = {});
    /// run() for a query whose caller can only leave out what cannot be read: a failure is logged.
    std::unique_ptr<OvStatement> read(const QString& sql, const QVariantList& values = {});
    /// Runs work inside a write transaction that waits for other writers; a failure rolls it back.
    OvStatus write(const std::function<OvStatus()>& work);
    /// One changing statement as a write of its own; *rows tells how many it touched.
    OvStatus change(const QString& sql, const QVariantList& values, int* rows = nullptr);
    /// A number that differs from call to call only when another connection, of this program or
    /// another, has changed the file in between; -1 when it cannot be told.
    qint64 foreignVersion();

private:
    OvStatus configure();
    std::shared_ptr<QSqlQuery> prepared(const QString& sql);
    bool execute(const QString& sql);
    OvStatus cannotOpen() const;
    OvStatus cannotWrite(const QString& why) const;

    QString m_path;
    QString m_connectionName;
    QSqlDatabase m_connection;
    QHash<QString, std::shared_ptr<QSqlQuery>> m_statements;
    bool m_inTransaction = false;
};
