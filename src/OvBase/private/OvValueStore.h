#pragma once

#include "OvSeismic/OvStatus.h"

#include <QVariant>

class OvDatabase;

/// One row of a value table: a global value, or a value of one project.
class OvValueStore
{
public:
    static OvValueStore global();
    static OvValueStore project(int projectId);

    /// An invalid value when there is none.
    QVariant value(const QString& key) const;
    /// An invalid value removes the key.
    OvStatus setValue(const QString& key, const QVariant& value) const;
    void clear() const;

private:
    OvValueStore(const QString& table, const QVariantList& scope);

    QVariantMap& memory() const;
    QString storedText(OvDatabase& database, const QString& key) const;
    OvStatus writeText(OvDatabase& database, const QString& key, const QString& text) const;

    QString m_table;
    QString m_where;      ///< restricts a statement to the scope
    QVariantList m_scope; ///< the values of m_where: none, or the key of the project
};
