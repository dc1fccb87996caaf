#include "OvBase/private/OvValueStore.h"

#include "OvBase/private/OvSession.h"
#include "OvBase/private/OvValueCodec.h"

OvValueStore::OvValueStore(const QString& table, const QVariantList& scope)
    : m_table(table)
    , m_where(scope.isEmpty() ? QString() : QStringLiteral("project_id = ? AND "))
    , m_scope(scope)
{
}

OvValueStore OvValueStore::global()
{
    return {QStringLiteral("global_values"), {}};
}

OvValueStore OvValueStore::project(int projectId)
{
    return {QStringLiteral("project_values"), {projectId}};
}

QVariantMap& OvValueStore::memory() const
{
    OvSession& session = OvSession::instance();
    return m_scope.isEmpty() ? session.memoryValues
                             : session.projectValues[m_scope.constFirst().toInt()];
}

QVariant OvValueStore::value(const QString& key) const
{
    OvDatabase* const database = OvSession::instance().database.get();
    return database ? OvValueCodec::decode(storedText(*database, key)) : memory().value(key);
}

QString OvValueStore::storedText(OvDatabase& database, const QString& key) const
{
    const auto row =
        database.run(QStringLiteral("SELECT value FROM %1 WHERE %2 key = ?").arg(m_table, m_where),
                     QVariantList(m_scope) << key);
    return row->next() ? row->value(0).toString() : QString();
}

OvStatus OvValueStore::setValue(const QString& key, const QVariant& value) const
{
    const QString text = value.isValid() ? OvValueCodec::encode(value) : QString();
    if (value.isValid() && text.isEmpty())
        return OvStatus::failure(OvDatabase::tr("The value %1 of type %2 cannot be stored.")
                                     .arg(key, QLatin1String(value.typeName())));
    OvDatabase* const database = OvSession::instance().database.get();
    if (database)
        return writeText(*database, key, text);
    memory().remove(key);
    if (value.isValid())
        memory().insert(key, value);
    return OvStatus::success();
}

OvStatus OvValueStore::writeText(OvDatabase& database, const QString& key,
                                 const QString& text) const
{
    // Views announce their settings often; only a change is worth a wait for the disk.
    if (storedText(database, key) == text)
        return OvStatus::success();
    if (text.isEmpty())
        return database.change(
            QStringLiteral("DELETE FROM %1 WHERE %2 key = ?").arg(m_table, m_where),
            QVariantList(m_scope) << key);
    const QString marks = m_scope.isEmpty() ? QStringLiteral("?, ?") : QStringLiteral("?, ?, ?");
    return database.change(
        QStringLiteral("INSERT OR REPLACE INTO %1 VALUES (%2)").arg(m_table, marks),
        QVariantList(m_scope) << key << text);
}

void OvValueStore::clear() const
{
    OvDatabase* const database = OvSession::instance().database.get();
    if (!database) {
        memory().clear();
        return;
    }
    const OvStatus status = database->change(
        QStringLiteral("DELETE FROM %1 WHERE %2 1").arg(m_table, m_where), m_scope);
    if (!status)
        qWarning("%s", qUtf8Printable(status.message()));
}
