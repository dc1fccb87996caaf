#include "OvBase/private/OvDatabase.h"

#include "OvBase/private/OvDatabaseCheck.h"
#include "OvBase/private/OvSchema.h"

#include <QDir>
#include <QFileInfo>
#include <QThread>

namespace {

int patienceMs = 20000;

// The engine's result codes; the upper bits of an error say more than is needed here.
constexpr int ResultMask = 0xff;
constexpr int ResultBusy = 5;
constexpr int ResultLocked = 6;
constexpr int ResultFull = 13;

QString nextConnectionName()
{
    static int number = 0;
    return QStringLiteral("OvBase-%1").arg(++number);
}

} // namespace

QString OvStatement::errorText() const
{
    return OvDatabase::reason(m_query->lastError());
}

QString OvDatabase::reason(const QSqlError& error)
{
    const int code = error.nativeErrorCode().toInt() & ResultMask;
    if (code == ResultBusy || code == ResultLocked)
        return tr("another program is working on it");
    if (code == ResultFull)
        return tr("the disk is full");
    const QString text = error.databaseText().trimmed();
    return text.isEmpty() ? error.text().trimmed() : text;
}

void OvDatabase::setPatience(int milliseconds)
{
    patienceMs = milliseconds;
}

int OvDatabase::patience()
{
    return patienceMs;
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

OvStatus OvDatabase::cannotOpen() const
{
    return OvStatus::failure(
        tr("The database %1 cannot be opened (%2). Check that its folder exists and can be "
           "written, and that the disk has room.")
            .arg(QDir::toNativeSeparators(m_path), reason(m_connection.lastError())));
}

OvStatus OvDatabase::cannotWrite(const QString& why) const
{
    return OvStatus::failure(tr("The database %1 cannot be written (%2). Check that the file can "
                                "be written and that the "
                                "disk has room.")
                                 .arg(QDir::toNativeSeparators(m_path), why));
}

OvStatus OvDatabase::open(const QString& path)
{
    m_path = QFileInfo(path).absoluteFilePath();
    OvStatus status = OvDatabaseCheck::check(m_path);
    if (!status)
        return status;
    m_connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connectionName);
    m_connection.setDatabaseName(m_path);
    m_connection.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(patienceMs));
    if (!m_connection.open())
        return cannotOpen();
    status = configure();
    return status ? OvSchema::migrate(*this) : status;
}

OvStatus OvDatabase::configure()
{
    if (!execute(QStringLiteral("PRAGMA foreign_keys = ON")) ||
        !execute(QStringLiteral("PRAGMA synchronous = FULL")))
        return cannotOpen();
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

std::shared_ptr<QSqlQuery> OvDatabase::prepared(const QString& sql)
{
    std::shared_ptr<QSqlQuery> query = m_statements.value(sql);
    if (query)
        return query;
    query = std::make_shared<QSqlQuery>(m_connection);
    query->setForwardOnly(true);
    if (query->prepare(sql))
        m_statements.insert(sql, query);
    return query;
}

std::unique_ptr<OvStatement> OvDatabase::run(const QString& sql, const QVariantList& values)
{
    const std::shared_ptr<QSqlQuery> query = prepared(sql);
    for (int i = 0; i < values.size(); ++i)
        query->bindValue(i, values.at(i));
    return std::make_unique<OvStatement>(query, query->exec());
}

std::unique_ptr<OvStatement> OvDatabase::read(const QString& sql, const QVariantList& values)
{
    auto statement = run(sql, values);
    if (!statement->ok())
        qWarning("%s", qUtf8Printable(
                           tr("The database %1 cannot be read (%2).")
                               .arg(QDir::toNativeSeparators(m_path), statement->errorText())));
    return statement;
}

OvStatus OvDatabase::change(const QString& sql, const QVariantList& values, int* rows)
{
    return write([&] {
        const auto statement = run(sql, values);
        if (rows)
            *rows = statement->affectedRows();
        return statement->ok() ? OvStatus::success() : cannotWrite(statement->errorText());
    });
}

OvStatus OvDatabase::write(const std::function<OvStatus()>& work)
{
    if (m_inTransaction)
        return work();
    QSqlQuery control(m_connection);
    if (!control.exec(QStringLiteral("BEGIN IMMEDIATE")))
        return cannotWrite(reason(control.lastError()));
    m_inTransaction = true;
    OvStatus status = work();
    m_inTransaction = false;
    if (status && control.exec(QStringLiteral("COMMIT")))
        return status;
    if (status)
        status = cannotWrite(reason(control.lastError()));
    control.exec(QStringLiteral("ROLLBACK"));
    return status;
}

qint64 OvDatabase::foreignVersion()
{
    const auto row = read(QStringLiteral("PRAGMA data_version"));
    return row->next() ? row->value(0).toLongLong() : -1;
}
