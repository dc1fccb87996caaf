#pragma once

#include "OvBase/OvProjectDefine.h"
#include "OvBase/private/OvDatabase.h"

#include <QVariantMap>

/// Records of the project table, and the state of the file that they were read from.
struct OvProjectList
{
    qint64 version = -1; ///< OvDatabase::foreignVersion(); negative when they have to be read
    QList<OvProjectDefine> records;

    void forget() { version = -1; }
    void noteOpened(int id, const QDateTime& time);
};

/// What a login opens and a logout closes. GUI thread.
struct OvSession
{
    static OvSession& instance();

    std::unique_ptr<OvDatabase> database; ///< null while nobody is logged in
    int userId = -1;
    QString userName;
    QString lastError;
    OvProjectList projects;
    QVariantMap memoryValues;              ///< global values while there is no database
    QHash<int, QVariantMap> projectValues; ///< project values while there is no database

    void close();
};
