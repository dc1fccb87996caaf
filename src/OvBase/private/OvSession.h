#pragma once

#include "OvBase/private/OvDatabase.h"

#include <QVariantMap>

/// What a login opens and a logout closes. GUI thread.
struct OvSession
{
    static OvSession& instance();

    std::unique_ptr<OvDatabase> database; ///< null while nobody is logged in
    int userId = -1;
    QString userName;
    QString lastError;
    QVariantMap memoryValues;              ///< global values while there is no database
    QHash<int, QVariantMap> projectValues; ///< project values while there is no database

    void close();
};
