#include "OvSeismic/firstbreak/OvFirstBreakConnection.h"

#include <QCoreApplication>
#include <QDir>
#include <QSqlError>
#include <QSqlQuery>

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(OvFirstBreakFile)
};

} // namespace

OvStatus OvFirstBreakConnection::failure(const QString& reason) const
{
    return OvStatus::failure(
        Text::tr("First-break file %1: %2").arg(QDir::toNativeSeparators(path), reason));
}

OvStatus OvFirstBreakConnection::failure(const QSqlQuery& query) const
{
    return failure(query.lastError().text());
}

OvStatus OvFirstBreakConnection::damagedBlock(qint64 firstTrace) const
{
    return failure(Text::tr("the first breaks from trace %1 on are damaged. Restore the file from "
                            "a copy.")
                       .arg(firstTrace));
}

OvStatus OvFirstBreakConnection::execute(const QString& statement) const
{
    QSqlQuery query(database());
    return query.exec(statement) ? OvStatus() : failure(query);
}

QVariant OvFirstBreakConnection::ask(const QString& statement, QString* error) const
{
    QSqlQuery query(database());
    QVariant value;
    if (query.exec(statement) && query.next())
        value = query.value(0);
    if (error)
        *error = query.lastError().isValid() ? query.lastError().text() : QString();
    return value;
}

QString OvFirstBreakConnection::metaValue(const char* key) const
{
    QSqlQuery query(database());
    query.prepare(QStringLiteral("SELECT value FROM meta WHERE key = ?"));
    query.addBindValue(QLatin1String(key));
    return query.exec() && query.next() ? query.value(0).toString() : QString();
}

OvStatus OvFirstBreakConnection::setMetaValue(const char* key, const QString& value) const
{
    QSqlQuery query(database());
    query.prepare(QStringLiteral("INSERT OR REPLACE INTO meta(key, value) VALUES (?, ?)"));
    query.addBindValue(QLatin1String(key));
    query.addBindValue(value);
    return query.exec() ? OvStatus() : failure(query);
}

OvFirstBreakTransaction::OvFirstBreakTransaction(const OvFirstBreakConnection& connection)
    : m_connection(connection)
{
}

OvFirstBreakTransaction::~OvFirstBreakTransaction()
{
    if (m_open)
        QSqlQuery(m_connection.database()).exec(QStringLiteral("ROLLBACK"));
}

OvStatus OvFirstBreakTransaction::begin()
{
    OvStatus status = m_connection.execute(QStringLiteral("BEGIN IMMEDIATE"));
    m_open = status.ok();
    return status;
}

OvStatus OvFirstBreakTransaction::commit()
{
    OvStatus status = m_connection.execute(QStringLiteral("COMMIT"));
    m_open = !status.ok();
    return status;
}
