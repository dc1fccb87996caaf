#include "OvSeismic/firstbreak/OvFirstBreakFile.h"

#include "OvSeismic/firstbreak/OvFirstBreakBlobs.h"
#include "OvSeismic/firstbreak/OvFirstBreakSchema.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryFile>
#include <QVariant>

#include <atomic>

struct OvFirstBreakFile::Private
{
    Q_DECLARE_TR_FUNCTIONS(OvFirstBreakFile)

public:
    QSqlDatabase database() const { return QSqlDatabase::database(connection, false); }
    OvStatus failure(const QString& reason) const
    {
        return OvStatus::failure(tr("First-break file %1: %2").arg(nativePath(), reason));
    }
    QString nativePath() const { return QDir::toNativeSeparators(path); }
    OvStatus failure(const QSqlQuery& query) const { return failure(query.lastError().text()); }
    OvStatus notOpen() const { return OvStatus::failure(tr("No first-break file is open.")); }
    OvStatus ready() const;
    OvStatus check(const QPair<qint32, OvFirstBreaks>& row) const;
    OvStatus connect();
    OvStatus store(const QVector<QPair<qint32, OvFirstBreaks>>& rows) const;
    OvStatus decode(const QSqlQuery& query, int traceCount, OvFirstBreaks* breaks) const;

    QString connection;
    QString path;
    bool readOnly = false;
};

namespace {

QString newConnectionName()
{
    static std::atomic<int> counter{0};
    return QStringLiteral("OvFirstBreakFile-%1").arg(++counter);
}

bool isWritableFolder(const QString& folder)
{
    // Permission bits do not tell on network shares and under access lists; a file does.
    QTemporaryFile probe(folder + QLatin1String("/.ov-fb-XXXXXX"));
    return probe.open();
}

QString shortHash(const QString& path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    const QByteArray name = (canonical.isEmpty() ? path : canonical).toUtf8();
    const QByteArray hash = QCryptographicHash::hash(name, QCryptographicHash::Sha1).toHex();
    return QString::fromLatin1(hash.left(10));
}

} // namespace

OvStatus OvFirstBreakFile::Private::ready() const
{
    if (connection.isEmpty())
        return notOpen();
    if (readOnly)
        return failure(tr("it is read-only; the first breaks cannot be saved."));
    // Writes to a deleted file would succeed and be lost.
    if (!QFileInfo::exists(path))
        return failure(tr("it was removed or renamed while it was open."));
    return {};
}

OvStatus OvFirstBreakFile::Private::connect()
{
    connection = newConnectionName();
    OvStatus status = OvFirstBreakSchema::connect(connection, path, readOnly);
    if (status && !readOnly)
        status = OvFirstBreakSchema::makeDurable(connection, path);
    return status;
}

OvStatus OvFirstBreakFile::Private::check(const QPair<qint32, OvFirstBreaks>& row) const
{
    const OvFirstBreaks& breaks = row.second;
    if (breaks.states.size() == breaks.timesMs.size() &&
        breaks.confidences.size() == breaks.timesMs.size())
        return {};
    return failure(tr("the first breaks of record %1 are incomplete.").arg(row.first));
}

OvStatus OvFirstBreakFile::Private::store(const QVector<QPair<qint32, OvFirstBreaks>>& rows) const
{
    QSqlQuery query(database());
    bool done = query.prepare(QStringLiteral(
        "INSERT OR REPLACE INTO gather(field_record, trace_count, times, states, confidences) "
        "VALUES (?, ?, ?, ?, ?)"));
    for (int i = 0; i < rows.size() && done; ++i) {
        const OvFirstBreaks& breaks = rows.at(i).second;
        OvStatus status = check(rows.at(i));
        if (!status)
            return status;
        query.addBindValue(rows.at(i).first);
        query.addBindValue(breaks.size());
        query.addBindValue(OvFirstBreakBlobs::fromFloats(breaks.timesMs));
        query.addBindValue(OvFirstBreakBlobs::fromStates(breaks.states));
        query.addBindValue(OvFirstBreakBlobs::fromFloats(breaks.confidences));
        done = query.exec();
    }
    return done ? OvStatus() : failure(query);
}

OvStatus OvFirstBreakFile::Private::decode(const QSqlQuery& query, int traceCount,
                                           OvFirstBreaks* breaks) const
{
    const qint64 stored = query.value(0).toLongLong();
    if (stored != traceCount) {
        return failure(tr("it has first breaks of %1 traces for a gather of %2 traces.")
                           .arg(stored)
                           .arg(traceCount));
    }
    const bool good =
        OvFirstBreakBlobs::toFloats(query.value(1).toByteArray(), traceCount, &breaks->timesMs) &&
        OvFirstBreakBlobs::toStates(query.value(2).toByteArray(), traceCount, &breaks->states) &&
        OvFirstBreakBlobs::toFloats(query.value(3).toByteArray(), traceCount, &breaks->confidences);
    if (good)
        return {};
    *breaks = {};
    return failure(tr("the row of a gather is damaged. Restore the file from a copy."));
}

OvFirstBreakFile::OvFirstBreakFile()
    : d(std::make_unique<Private>())
{
}

OvFirstBreakFile::~OvFirstBreakFile()
{
    close();
}

QString OvFirstBreakFile::pathFor(const QString& segyPath, const QString& fallbackFolder)
{
    const QFileInfo segy(segyPath);
    QString beside = segy.absoluteFilePath() + QLatin1String(".fb");
    const QString name =
        QStringLiteral("%1-%2.fb").arg(segy.fileName(), shortHash(segy.absoluteFilePath()));
    QString fallback = QDir(fallbackFolder).absoluteFilePath(name);
    if (QFileInfo(beside).isWritable())
        return beside;
    // What was picked while the folder could not be written to must not be lost from sight.
    if (QFileInfo::exists(fallback))
        return fallback;
    if (QFileInfo::exists(beside) || isWritableFolder(segy.absolutePath()))
        return beside;
    return fallback;
}

OvStatus OvFirstBreakFile::open(const QString& path, const OvSegyFileInfo& segy)
{
    close();
    d->path = QFileInfo(path).absoluteFilePath();
    OvStatus status;
    if (!QFileInfo::exists(d->path))
        status = OvFirstBreakSchema::create(d->path, segy);
    if (status)
        status = OvFirstBreakSchema::checkKind(d->path);
    if (status) {
        d->readOnly = !QFileInfo(d->path).isWritable() ||
                      !isWritableFolder(QFileInfo(d->path).absolutePath());
        status = d->connect();
    }
    if (status)
        status = OvFirstBreakSchema::check(d->connection, d->path, segy);
    if (!status)
        close();
    return status;
}

void OvFirstBreakFile::close()
{
    if (!d->connection.isEmpty())
        OvFirstBreakSchema::disconnect(d->connection);
    *d = {};
}

bool OvFirstBreakFile::isOpen() const
{
    return !d->connection.isEmpty();
}

QString OvFirstBreakFile::path() const
{
    return d->path;
}

QVector<qint32> OvFirstBreakFile::fieldRecords() const
{
    QVector<qint32> records;
    if (!isOpen())
        return records;
    QSqlQuery query(d->database());
    query.setForwardOnly(true);
    if (query.exec(QStringLiteral("SELECT field_record FROM gather ORDER BY field_record"))) {
        while (query.next())
            records += query.value(0).toInt();
    }
    return records;
}

OvStatus OvFirstBreakFile::read(qint32 fieldRecord, int traceCount, OvFirstBreaks* breaks) const
{
    *breaks = {};
    if (!isOpen())
        return d->notOpen();
    QSqlQuery query(d->database());
    query.setForwardOnly(true);
    query.prepare(QStringLiteral(
        "SELECT trace_count, times, states, confidences FROM gather WHERE field_record = ?"));
    query.addBindValue(fieldRecord);
    if (!query.exec())
        return d->failure(query);
    return query.next() ? d->decode(query, traceCount, breaks) : OvStatus();
}

OvStatus OvFirstBreakFile::write(qint32 fieldRecord, const OvFirstBreaks& breaks)
{
    return write({{fieldRecord, breaks}});
}

OvStatus OvFirstBreakFile::write(const QVector<QPair<qint32, OvFirstBreaks>>& rows)
{
    OvStatus status = d->ready();
    if (!status)
        return status;
    QSqlDatabase database = d->database();
    if (!database.transaction())
        return d->failure(database.lastError().text());
    status = d->store(rows);
    if (status && !database.commit())
        status = d->failure(database.lastError().text());
    if (!status)
        database.rollback();
    return status;
}

OvStatus OvFirstBreakFile::remove(qint32 fieldRecord)
{
    OvStatus status = d->ready();
    if (!status)
        return status;
    QSqlQuery query(d->database());
    query.prepare(QStringLiteral("DELETE FROM gather WHERE field_record = ?"));
    query.addBindValue(fieldRecord);
    return query.exec() ? OvStatus() : d->failure(query);
}
