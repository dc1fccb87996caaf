#pragma once

#include "OvSeismic/OvStatus.h"

#include <QSqlDatabase>
#include <QString>
#include <QVariant>

class QSqlQuery;

/// A connection of the calling thread to one first-break file, and how its failures are worded.
struct OvFirstBreakConnection
{
    QString name; ///< of the database connection; empty when there is none
    QString path; ///< of the file
    bool readOnly = false;

    QSqlDatabase database() const { return QSqlDatabase::database(name, false); }
    /// Reasons are sentences that follow the name of the file.
    OvStatus failure(const QString& reason) const;
    OvStatus failure(const QSqlQuery& query) const;
    OvStatus damagedBlock(qint64 firstTrace) const;

    /// Runs a statement without results.
    OvStatus execute(const QString& statement) const;
    /// The first value of the first row; invalid when there is none or on failure.
    QVariant ask(const QString& statement, QString* error = nullptr) const;
    QString metaValue(const char* key) const;
    OvStatus setMetaValue(const char* key, const QString& value) const;
};

/// A transaction that writes. It holds the file's only write lock from the start, so that what is
/// read in it is what is changed; rolled back unless it is committed.
class OvFirstBreakTransaction
{
public:
    explicit OvFirstBreakTransaction(const OvFirstBreakConnection& connection);
    ~OvFirstBreakTransaction();
    OvFirstBreakTransaction(const OvFirstBreakTransaction&) = delete;
    OvFirstBreakTransaction& operator=(const OvFirstBreakTransaction&) = delete;

    OvStatus begin();
    OvStatus commit();

private:
    const OvFirstBreakConnection& m_connection;
    bool m_open = false;
};
