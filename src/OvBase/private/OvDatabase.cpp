#include "OvBase/private/OvDatabase.h"

#include "OvBase/private/OvDatabaseCheck.h"
#include "OvBase/private/OvSchema.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QSqlError>
#include <QThread>

namespace {

constexpr int BusyTimeoutMs = 20000;

QString nextConnectionName()
{
    static int number = 0;
    return QStringLiteral("OvBase-%1").arg(++number);
}

QString translated(const char* text)
{
    return QCoreApplication::translate("OvDatabase", text);
}

} // namespace

QString OvStatement::errorText() const
{
    return m_query->lastError().text();
}

OvDatabase::OvDatabase()
    : m_connectionName(nextConnectionName())
{
}

OvDatabase::~OvDatabase()
{
    m_statements.clear();
    if (!m_connection.isValid())
        return;
    m_connection.close();
    m_connection = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_connectionName);
}

OvStatus OvDatabase::failure(const QString& text) const
{
    return OvStatus::failure(
        text.arg(QDir::toNativeSeparators(m_path), m_connection.lastError().text().trimmed()));
}

OvStatus OvDatabase::open(const QString& path)
{
    m_path = QFileInfo(path).absoluteFilePath();
    OvStatus status = OvDatabaseCheck::check(m_path);
    if (!status)
        return status;
    m_connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connectionName);
    m_connection.setDatabaseName(m_path);
    m_connection.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(BusyTimeoutMs));
    if (!m_connection.open())
        return failure(translated("The database %1 cannot be opened: %2"));
    status = configure();
    return status ? OvSchema::migrate(*this) : status;
}

OvStatus OvDatabase::configure()
{
    if (!execute(QStringLiteral("PRAGMA foreign_keys = ON")) ||
        !execute(QStringLiteral("PRAGMA synchronous = FULL")))
        return failure(translated("The database %1 cannot be opened: %2"));
    // Another program that opens the file at this moment can refuse the change of mode without
    // waiting. Any mode is safe, this one only lets readers go on while somebody writes.
    for (int attempt = 0; attempt < 20; ++attempt) {
        QSqlQuery mode(m_connection);
        if (mode.exec(QStringLiteral("PRAGMA journal_mode = WAL")) && mode.next() &&
            mode.value(0).toString() == QLatin1String("wal"))
            break;
        QThread::msleep(10);
    }
    return OvStatus::success();
}

bool OvDatabase::execute(const QString& sql)
{
    QSqlQuery query(m_connection);
    return query.exec(sql);
}

std::unique_ptr<OvStatement> OvDatabase::run(const QString& sql, const QVariantList& values)
{
    std::shared_ptr<QSqlQuery>& kept = m_statements[sql];
    if (!kept) {
        kept = std::make_shared<QSqlQuery>(m_connection);
        kept->setForwardOnly(true);
        kept->prepare(sql);
    }
    for (int i = 0; i < values.size(); ++i)
        kept->bindValue(i, values.at(i));
    auto statement = std::make_unique<OvStatement>(kept.get(), kept->exec());
    if (!statement->ok())
        qWarning("%s: %s", qUtf8Printable(QDir::toNativeSeparators(m_path)),
                 qUtf8Printable(statement->errorText()));
    return statement;
}

OvStatus OvDatabase::write(const std::function<OvStatus()>& work)
{
    if (m_inTransaction)
        return work();
    QSqlQuery control(m_connection);
    const auto refused = [&] {
        return OvStatus::failure(
            translated("The database %1 cannot be written: %2")
                .arg(QDir::toNativeSeparators(m_path), control.lastError().text()));
    };
    if (!control.exec(QStringLiteral("BEGIN IMMEDIATE")))
        return refused();
    m_inTransaction = true;
    OvStatus status = work();
    m_inTransaction = false;
    if (status && control.exec(QStringLiteral("COMMIT")))
        return status;
    if (status)
        status = refused();
    control.exec(QStringLiteral("ROLLBACK"));
    return status;
}
