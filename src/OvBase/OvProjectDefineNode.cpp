#include "OvBase/OvProjectDefineNode.h"

#include "OvBase/private/OvSession.h"

namespace {

const QString Columns = QStringLiteral(
    "SELECT id, name, user_id, data_path, description, open_time, create_time FROM projects ");

const QString InsertText =
    QStringLiteral("INSERT INTO projects (name, user_id, data_path, description, "
                   "create_time, open_time) VALUES (?, ?, ?, ?, ?, ?)");

const QString UpdateText =
    QStringLiteral("UPDATE projects SET name = ?, user_id = ?, data_path = ?, description = ?, "
                   "create_time = ? WHERE id = ?");

OvDatabase* database()
{
    return OvSession::instance().database.get();
}

/// The stored records as last read. Good while neither this program nor another has changed them.
OvProjectList& lastRead()
{
    return OvSession::instance().projects;
}

QVariant fromTime(const QDateTime& time)
{
    return time.isValid() ? QVariant(time.toUTC().toString(Qt::ISODateWithMs))
                          : QVariant(QVariant::String);
}

/// The number in length characters of text; -1 for none.
int numberAt(const QString& text, int place, int length)
{
    bool isNumber = false;
    const int number = text.midRef(place, length).toInt(&isNumber);
    return isNumber ? number : -1;
}

// The toolkit's reader of all layouts would take most of the time of reading a long table.
QDateTime toTime(const QVariant& value)
{
    const QString text = value.toString();
    constexpr int length = 24; // 2026-03-01T10:20:30.000Z, as fromTime() writes it
    if (text.isEmpty())
        return {};
    const QDate date(numberAt(text, 0, 4), numberAt(text, 5, 2), numberAt(text, 8, 2));
    const QTime time(numberAt(text, 11, 2), numberAt(text, 14, 2), numberAt(text, 17, 2),
                     numberAt(text, 20, 3));
    const bool isOwn = text.size() == length && text.endsWith(QLatin1Char('Z'));
    if (isOwn && date.isValid() && time.isValid())
        return QDateTime(date, time, Qt::UTC).toLocalTime();
    return QDateTime::fromString(text, Qt::ISODateWithMs).toLocalTime();
}

// A null text would be stored as a missing value, which the table refuses.
QString present(const QString& text)
{
    return text.isNull() ? QLatin1String("") : text;
}

OvProjectDefine record(const OvStatement& row)
{
    OvProjectDefine define;
    define.id = row.value(0).toInt();
    define.name = row.value(1).toString();
    define.userId = row.value(2).toInt();
    define.dataPath = row.value(3).toString();
    define.description = row.value(4).toString();
    define.openTime = toTime(row.value(5));
    define.createTime = toTime(row.value(6));
    return define;
}

QVariantList fields(const OvProjectDefine& define)
{
    return {define.name, define.userId, present(define.dataPath), present(define.description),
            fromTime(define.createTime)};
}

bool succeeded(const OvStatus& status)
{
    if (!status)
        qWarning("%s", qUtf8Printable(status.message()));
    return status.ok();
}

/// Whether the statement could be run and touched a record.
bool change(const QString& sql, const QVariantList& values)
{
    int rows = 0;
    lastRead().forget();
    return succeeded(database()->change(sql, values, &rows)) && rows == 1;
}

/// Whether a record other than the one of that key has the name.
bool isTaken(const QString& name, int key)
{
    const OvProjectDefine owner = OvProjectDefineNode().projectByName(name);
    return owner.isValid() && owner.id != key;
}

/// What could not be read as a whole is not good for a second time.
OvProjectList readAll(qint64 version)
{
    OvProjectList list;
    const auto rows = database()->read(Columns + QStringLiteral("ORDER BY id"));
    while (rows->next())
        list.records.append(record(*rows));
    if (rows->ok())
        list.version = version;
    return list;
}

OvStatus insertRecord(const OvProjectDefine& define, int* key)
{
    OvStatus status = database()->change(InsertText, fields(define) << fromTime(define.openTime));
    const auto row = database()->run(QStringLiteral("SELECT last_insert_rowid()"));
    if (status && row->next())
        *key = row->value(0).toInt();
    return status;
}

} // namespace

QList<OvProjectDefine> OvProjectDefineNode::projects() const
{
    if (!database())
        return {};
    // Asked before the records are read: what another program adds in between is read again.
    const qint64 version = database()->foreignVersion();
    if (version < 0 || version != lastRead().version)
        lastRead() = readAll(version);
    return lastRead().records;
}

OvProjectDefine OvProjectDefineNode::projectByName(const QString& name) const
{
    if (!database() || name.isEmpty())
        return {};
    const auto row = database()->read(Columns + QStringLiteral("WHERE name = ?"), {name});
    return row->next() ? record(*row) : OvProjectDefine();
}

int OvProjectDefineNode::insertProject(const OvProjectDefine& define)
{
    if (!database() || define.name.isEmpty())
        return -1;
    int key = -1;
    lastRead().forget();
    const OvStatus status = database()->write([&] {
        return isTaken(define.name, -1) ? OvStatus::success() : insertRecord(define, &key);
    });
    return succeeded(status) ? key : -1;
}

bool OvProjectDefineNode::updateProject(const OvProjectDefine& define)
{
    if (!database() || !define.isValid())
        return false;
    int rows = 0;
    lastRead().forget();
    const OvStatus status = database()->write([&] {
        return isTaken(define.name, define.id)
                   ? OvStatus::success()
                   : database()->change(UpdateText, fields(define) << define.id, &rows);
    });
    return succeeded(status) && rows == 1;
}

bool OvProjectDefineNode::removeProject(const OvProjectDefine& define)
{
    return database() && change(QStringLiteral("DELETE FROM projects WHERE id = ?"), {define.id});
}

bool OvProjectDefineNode::noteOpened(const OvProjectDefine& define)
{
    if (!database())
        return false;
    const QVariant time = fromTime(define.openTime);
    const qint64 version = lastRead().version;
    if (!change(QStringLiteral("UPDATE projects SET open_time = ? WHERE id = ?"),
                {time, define.id}))
        return false;
    // Each opening would otherwise cost a reading of all records at the next closing.
    lastRead().noteOpened(define.id, toTime(time));
    lastRead().version = version;
    return true;
}
