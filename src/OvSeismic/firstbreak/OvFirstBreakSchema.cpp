#include "OvSeismic/firstbreak/OvFirstBreakSchema.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryFile>
#include <QUrl>
#include <QVariant>
#include <QtEndian>

namespace {

// Where SQLite keeps these two numbers in the first page of every database.
constexpr int userVersionAt = 60;
constexpr int applicationIdAt = 68;
constexpr int sqliteHeaderSize = 100;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(OvFirstBreakFile)

public:
    static OvStatus failure(const QString& path, const QString& reason)
    {
        return OvStatus::failure(
            tr("First-break file %1: %2").arg(QDir::toNativeSeparators(path), reason));
    }
    static QString otherKind() { return tr("it is not a first-break file. Move it away."); }
    static QString empty() { return tr("it is empty. Move it away."); }
    static QString damaged(const QString& detail)
    {
        return tr("it is damaged (%1). Restore it from a copy or move it away.").arg(detail);
    }
    static QString newer()
    {
        return tr("it was written by a newer version of the program. Update the program.");
    }
    static QString otherSegy(const QString& name, const QString& traces, qint64 wanted)
    {
        return tr("it belongs to another SEG-Y file: it was made for %1 with %2 traces, and this "
                  "one "
                  "has %3.")
            .arg(name, traces, QString::number(wanted));
    }
};

QSqlDatabase databaseOf(const QString& connection)
{
    return QSqlDatabase::database(connection, false);
}

/// The first value of the first row; invalid on failure.
QVariant ask(const QString& connection, const QString& statement, QString* error = nullptr)
{
    QSqlQuery query(databaseOf(connection));
    QVariant value;
    if (query.exec(statement) && query.next())
        value = query.value(0);
    if (error)
        *error = query.lastError().isValid() ? query.lastError().text() : QString();
    return value;
}

QString metaValue(const QString& connection, const char* key)
{
    QSqlQuery query(databaseOf(connection));
    query.prepare(QStringLiteral("SELECT value FROM meta WHERE key = ?"));
    query.addBindValue(QLatin1String(key));
    return query.exec() && query.next() ? query.value(0).toString() : QString();
}

QStringList schemaStatements()
{
    return {
        QStringLiteral("PRAGMA application_id = %1").arg(OvFirstBreakSchema::applicationId),
        QStringLiteral("PRAGMA user_version = %1").arg(OvFirstBreakSchema::version),
        QStringLiteral("CREATE TABLE meta(key TEXT PRIMARY KEY, value TEXT) WITHOUT ROWID"),
        QStringLiteral("CREATE TABLE gather(field_record INTEGER PRIMARY KEY, "
                       "trace_count INTEGER NOT NULL, times BLOB NOT NULL, states BLOB NOT NULL, "
                       "confidences BLOB NOT NULL)"),
    };
}

QVector<QPair<QString, QString>> metaRows(const OvSegyFileInfo& segy)
{
    const QFileInfo file(segy.path);
    return {
        {QStringLiteral("schema_version"), QString::number(OvFirstBreakSchema::version)},
        {QStringLiteral("segy_name"), file.fileName()},
        {QStringLiteral("segy_size"), QString::number(segy.fileSize)},
        {QStringLiteral("segy_modified"), file.lastModified().toUTC().toString(Qt::ISODateWithMs)},
        {QStringLiteral("trace_count"), QString::number(segy.traceCount)},
        {QStringLiteral("header_mapping"), QStringLiteral("field_record=9,channel=13,offset=37")},
    };
}

bool fill(const QString& connection, const OvSegyFileInfo& segy, QString* error)
{
    QSqlDatabase database = databaseOf(connection);
    QSqlQuery query(database);
    bool done = database.transaction();
    for (const QString& statement : schemaStatements())
        done = done && query.exec(statement);
    done = done && query.prepare(QStringLiteral("INSERT INTO meta(key, value) VALUES (?, ?)"));
    for (const auto& row : metaRows(segy)) {
        query.addBindValue(row.first);
        query.addBindValue(row.second);
        done = done && query.exec();
    }
    *error = query.lastError().text();
    return done && database.commit();
}

QString uri(const QString& path, const char* options)
{
    const QByteArray encoded = QUrl::fromLocalFile(path).toEncoded(QUrl::FullyEncoded);
    return QString::fromLatin1(encoded) + QLatin1String(options);
}

} // namespace

OvStatus OvFirstBreakSchema::create(const QString& path, const OvSegyFileInfo& segy)
{
    const QString folder = QFileInfo(path).absolutePath();
    if (!QDir().mkpath(folder))
        return Text::failure(folder, qt_error_string());
    QTemporaryFile place(path + QLatin1String(".XXXXXX"));
    if (!place.open())
        return Text::failure(path, place.errorString());
    place.close();
    // Its name, which is unique, names the connection as well.
    const QString draft = place.fileName();
    OvStatus status = connect(draft, draft, false);
    QString error;
    if (status && !fill(draft, segy, &error))
        status = Text::failure(path, error);
    disconnect(draft);
    // Without replacing: a file that has appeared meanwhile holds somebody's first breaks.
    if (status && !place.rename(path) && !QFileInfo::exists(path))
        status = Text::failure(path, place.errorString());
    if (place.fileName() == path)
        place.setAutoRemove(false);
    return status;
}

OvStatus OvFirstBreakSchema::checkKind(const QString& path)
{
    // A pipe would block the open below.
    if (!QFileInfo(path).isFile())
        return Text::failure(path, Text::otherKind());
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Text::failure(path, file.errorString());
    const QByteArray header = file.read(sqliteHeaderSize);
    if (header.isEmpty())
        return Text::failure(path, Text::empty());
    if (header.size() < sqliteHeaderSize || !header.startsWith(QByteArray("SQLite format 3\0", 16)))
        return Text::failure(path, Text::otherKind());
    if (qFromBigEndian<quint32>(header.constData() + applicationIdAt) != applicationId)
        return Text::failure(path, Text::otherKind());
    if (qFromBigEndian<qint32>(header.constData() + userVersionAt) > version)
        return Text::failure(path, Text::newer());
    return {};
}

OvStatus OvFirstBreakSchema::connect(const QString& connection, const QString& path, bool readOnly)
{
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
    database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=5000"));
    // In a folder that cannot be written to there is no place for SQLite's shared memory; immutable
    // does without.
    database.setDatabaseName(uri(path, readOnly ? "?mode=ro&immutable=1" : "?mode=rw"));
    if (!database.open())
        return Text::failure(path, database.lastError().text());
    return {};
}

void OvFirstBreakSchema::disconnect(const QString& connection)
{
    databaseOf(connection).close();
    QSqlDatabase::removeDatabase(connection);
}

OvStatus OvFirstBreakSchema::makeDurable(const QString& connection, const QString& path)
{
    // Where write-ahead logging does not work (network shares) SQLite keeps its rollback journal,
    // which is as durable and only slower.
    QString error;
    ask(connection, QStringLiteral("PRAGMA journal_mode = WAL"), &error);
    if (error.isEmpty())
        ask(connection, QStringLiteral("PRAGMA synchronous = FULL"), &error);
    return error.isEmpty() ? OvStatus() : Text::failure(path, Text::damaged(error));
}

OvStatus OvFirstBreakSchema::check(const QString& connection, const QString& path,
                                   const OvSegyFileInfo& segy)
{
    QString error;
    const QString verdict =
        ask(connection, QStringLiteral("PRAGMA quick_check(1)"), &error).toString();
    if (verdict != QLatin1String("ok"))
        return Text::failure(path, Text::damaged(error.isEmpty() ? verdict : error));
    if (ask(connection, QStringLiteral("PRAGMA user_version")).toInt() > version)
        return Text::failure(path, Text::newer());
    ask(connection, QStringLiteral("SELECT trace_count, times, states, confidences FROM gather"),
        &error);
    const QString traces = metaValue(connection, "trace_count");
    if (!error.isEmpty() || traces.isEmpty())
        return Text::failure(path, Text::damaged(error));
    if (traces.toLongLong() != segy.traceCount) {
        const QString name = metaValue(connection, "segy_name");
        return Text::failure(path, Text::otherSegy(name, traces, segy.traceCount));
    }
    return {};
}
