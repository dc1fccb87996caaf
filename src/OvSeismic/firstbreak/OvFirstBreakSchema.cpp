#include "OvSeismic/firstbreak/OvFirstBreakSchema.h"

#include "OvSeismic/firstbreak/OvFirstBreakConnection.h"
#include "OvSeismic/segy/OvTraceHeaderMapping.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <QTemporaryFile>
#include <QUrl>
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

QStringList tableStatements()
{
    return {
        QStringLiteral("PRAGMA user_version = %1").arg(OvFirstBreakSchema::version),
        QStringLiteral("CREATE TABLE trace_block(first_trace INTEGER PRIMARY KEY, "
                       "trace_count INTEGER NOT NULL, times BLOB NOT NULL, states BLOB NOT NULL, "
                       "confidences BLOB NOT NULL)"),
        QStringLiteral("CREATE TABLE run_gather(gather INTEGER PRIMARY KEY)"),
    };
}

QStringList schemaStatements()
{
    return QStringList{
               QStringLiteral("PRAGMA application_id = %1").arg(OvFirstBreakSchema::applicationId),
               QStringLiteral("CREATE TABLE meta(key TEXT PRIMARY KEY, value TEXT) WITHOUT ROWID"),
           } +
           tableStatements();
}

QStringList probeStatements(int version)
{
    if (version == OvFirstBreakSchema::versionByRecord)
        return {QStringLiteral("SELECT trace_count, times, states, confidences FROM gather")};
    return {
        QStringLiteral("SELECT trace_count, times, states, confidences FROM trace_block LIMIT 1"),
        QStringLiteral("SELECT gather FROM run_gather LIMIT 1")};
}

OvStatus execute(const OvFirstBreakConnection& file, const QStringList& statements)
{
    OvStatus status;
    for (const QString& statement : statements) {
        if (status)
            status = file.execute(statement);
    }
    return status;
}

QVector<QPair<const char*, QString>> metaRows(const OvSegyFileInfo& segy)
{
    const QFileInfo file(segy.path);
    return {
        {"schema_version", QString::number(OvFirstBreakSchema::version)},
        {"segy_name", file.fileName()},
        {"segy_size", QString::number(segy.fileSize)},
        {"segy_modified", file.lastModified().toUTC().toString(Qt::ISODateWithMs)},
        {"trace_count", QString::number(segy.traceCount)},
        {"header_mapping", OvTraceHeaderMapping().toText()},
    };
}

OvStatus fill(const OvFirstBreakConnection& file, const OvSegyFileInfo& segy)
{
    OvFirstBreakTransaction transaction(file);
    OvStatus status = transaction.begin();
    if (status)
        status = execute(file, schemaStatements());
    const auto rows = metaRows(segy);
    for (const auto& row : rows) {
        if (status)
            status = file.setMetaValue(row.first, row.second);
    }
    return status ? transaction.commit() : status;
}

QString uri(const QString& path, const char* options)
{
    const QByteArray encoded = QUrl::fromLocalFile(path).toEncoded(QUrl::FullyEncoded);
    return QString::fromLatin1(encoded) + QLatin1String(options);
}

} // namespace

OvStatus OvFirstBreakSchema::create(const QString& path, const OvSegyFileInfo& segy)
{
    OvFirstBreakConnection draft;
    draft.path = QFileInfo(path).absolutePath();
    if (!QDir().mkpath(draft.path))
        return draft.failure(qt_error_string());
    QTemporaryFile place(path + QLatin1String(".XXXXXX"));
    draft.path = path;
    if (!place.open())
        return draft.failure(place.errorString());
    place.close();
    // Its name, which is unique, names the connection as well.
    draft.path = place.fileName();
    draft.name = draft.path;
    OvStatus status = connect(draft);
    // Here, where it is alone: SQLite does not wait for others when it changes the journal.
    if (status)
        status = makeDurable(draft);
    if (status)
        status = fill(draft, segy);
    disconnect(draft);
    // Without replacing: a file that has appeared meanwhile holds somebody's first breaks.
    if (status && !place.rename(path) && !QFileInfo::exists(path))
        status = draft.failure(place.errorString());
    if (place.fileName() == path)
        place.setAutoRemove(false);
    return status;
}

OvStatus OvFirstBreakSchema::checkKind(const QString& path)
{
    OvFirstBreakConnection place;
    place.path = path;
    // A pipe would block the open below.
    if (!QFileInfo(path).isFile())
        return place.failure(Text::otherKind());
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return place.failure(file.errorString());
    const QByteArray header = file.read(sqliteHeaderSize);
    if (header.isEmpty())
        return place.failure(Text::empty());
    if (header.size() < sqliteHeaderSize || !header.startsWith(QByteArray("SQLite format 3\0", 16)))
        return place.failure(Text::otherKind());
    if (qFromBigEndian<quint32>(header.constData() + applicationIdAt) != applicationId)
        return place.failure(Text::otherKind());
    if (qFromBigEndian<qint32>(header.constData() + userVersionAt) > version)
        return place.failure(Text::newer());
    return {};
}

OvStatus OvFirstBreakSchema::connect(const OvFirstBreakConnection& file)
{
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), file.name);
    database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=5000"));
    // In a folder that cannot be written to there is no place for SQLite's shared memory; immutable
    // does without.
    database.setDatabaseName(uri(file.path, file.readOnly ? "?mode=ro&immutable=1" : "?mode=rw"));
    if (!database.open())
        return file.failure(database.lastError().text());
    return {};
}

void OvFirstBreakSchema::disconnect(const OvFirstBreakConnection& file)
{
    file.database().close();
    QSqlDatabase::removeDatabase(file.name);
}

OvStatus OvFirstBreakSchema::makeDurable(const OvFirstBreakConnection& file)
{
    // Where write-ahead logging does not work (network shares) SQLite keeps its rollback journal,
    // which is as durable and only slower.
    QString error;
    file.ask(QStringLiteral("PRAGMA journal_mode = WAL"), &error);
    if (error.isEmpty())
        file.ask(QStringLiteral("PRAGMA synchronous = FULL"), &error);
    return error.isEmpty() ? OvStatus() : file.failure(Text::damaged(error));
}

int OvFirstBreakSchema::versionOf(const OvFirstBreakConnection& file)
{
    return file.ask(QStringLiteral("PRAGMA user_version")).toInt();
}

OvStatus OvFirstBreakSchema::check(const OvFirstBreakConnection& file, const OvSegyFileInfo& segy)
{
    QString error;
    const QString verdict = file.ask(QStringLiteral("PRAGMA quick_check(1)"), &error).toString();
    if (verdict != QLatin1String("ok"))
        return file.failure(Text::damaged(error.isEmpty() ? verdict : error));
    if (versionOf(file) > version)
        return file.failure(Text::newer());
    const QStringList statements = probeStatements(versionOf(file));
    for (const QString& statement : statements) {
        if (error.isEmpty())
            file.ask(statement, &error);
    }
    const QString traces = file.metaValue("trace_count");
    if (!error.isEmpty() || traces.isEmpty())
        return file.failure(Text::damaged(error));
    if (traces.toLongLong() != segy.traceCount && !hasGrown(file, segy)) {
        const QString name = file.metaValue("segy_name");
        return file.failure(Text::otherSegy(name, traces, segy.traceCount));
    }
    return {};
}

bool OvFirstBreakSchema::hasGrown(const OvFirstBreakConnection& file, const OvSegyFileInfo& segy)
{
    return versionOf(file) == version &&
           file.metaValue("segy_name") == QFileInfo(segy.path).fileName() &&
           file.metaValue("segy_size").toLongLong() < segy.fileSize &&
           file.metaValue("trace_count").toLongLong() < segy.traceCount;
}

OvStatus OvFirstBreakSchema::followGrowth(const OvFirstBreakConnection& file,
                                          const OvSegyFileInfo& segy)
{
    OvStatus status;
    const auto rows = metaRows(segy);
    for (const auto& row : rows) {
        const bool describesTheFile = qstrncmp(row.first, "segy_", 5) == 0;
        if (status && (describesTheFile || qstrcmp(row.first, "trace_count") == 0))
            status = file.setMetaValue(row.first, row.second);
    }
    return status;
}

OvStatus OvFirstBreakSchema::replaceOldTables(const OvFirstBreakConnection& file)
{
    OvStatus status =
        execute(file, QStringList(QStringLiteral("DROP TABLE gather")) + tableStatements());
    return status ? file.setMetaValue("schema_version", QString::number(version)) : status;
}
