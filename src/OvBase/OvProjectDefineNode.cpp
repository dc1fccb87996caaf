#include "OvBase/OvProjectDefineNode.h"

#include "OvBase/private/OvSession.h"

namespace {

const QString Columns = QStringLiteral(
    "SELECT id, name, user_id, data_path, description, open_time, create_time FROM projects ");

OvDatabase* database()
{
    return OvSession::instance().database.get();
}

QVariant fromTime(const QDateTime& time)
{
    return time.isValid() ? QVariant(time.toUTC().toString(Qt::ISODateWithMs))
                          : QVariant(QVariant::String);
}

QDateTime toTime(const QVariant& text)
{
    return QDateTime::fromString(text.toString(), Qt::ISODateWithMs).toLocalTime();
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
    return {define.name,
            define.userId,
            present(define.dataPath),
            present(define.description),
            fromTime(define.openTime),
            fromTime(define.createTime)};
}

/// Runs one changing statement; the number of rows that it touched.
int change(const QString& sql, const QVariantList& values)
{
    int rows = 0;
    const OvStatus status = database()->write([&] {
        const auto statement = database()->run(sql, values);
        rows = statement->affectedRows();
        return statement->ok() ? OvStatus::success() : OvStatus::failure(statement->errorText());
    });
    return status ? rows : 0;
}

bool isTaken(const OvProjectDefine& define)
{
    const int owner = OvProjectDefineNode().projectByName(define.name).id;
    return owner >= 0 && owner != define.id;
}

} // namespace

QList<OvProjectDefine> OvProjectDefineNode::projects() const
{
    QList<OvProjectDefine> list;
    if (!database())
        return list;
    const auto rows = database()->run(Columns + QStringLiteral("ORDER BY id"));
    while (rows->next())
        list.append(record(*rows));
    return list;
}

OvProjectDefine OvProjectDefineNode::projectByName(const QString& name) const
{
    if (!database() || name.isEmpty())
        return {};
    const auto row = database()->run(Columns + QStringLiteral("WHERE name = ?"), {name});
    return row->next() ? record(*row) : OvProjectDefine();
}

int OvProjectDefineNode::insertProject(const OvProjectDefine& define)
{
    if (!database() || define.name.isEmpty())
        return -1;
    qint64 key = -1;
    const OvStatus status = database()->write([&] {
        if (projectByName(define.name).isValid())
            return OvStatus::failure(define.name);
        const auto row = database()->run(
            QStringLiteral(
                "INSERT INTO projects (name, user_id, data_path, description, open_time, "
                "create_time) VALUES (?, ?, ?, ?, ?, ?)"),
            fields(define));
        key = row->ok() ? row->insertedKey() : -1;
        return row->ok() ? OvStatus::success() : OvStatus::failure(row->errorText());
    });
    return status ? static_cast<int>(key) : -1;
}

bool OvProjectDefineNode::updateProject(const OvProjectDefine& define)
{
    if (!database() || !define.isValid())
        return false;
    bool done = false;
    const OvStatus status = database()->write([&] {
        if (isTaken(define))
            return OvStatus::failure(define.name);
        done =
            change(QStringLiteral("UPDATE projects SET name = ?, user_id = ?, data_path = ?, "
                                  "description = ?, open_time = ?, create_time = ? WHERE id = ?"),
                   fields(define) << define.id) == 1;
        return OvStatus::success();
    });
    return status && done;
}

bool OvProjectDefineNode::removeProject(const OvProjectDefine& define)
{
    return database() &&
           change(QStringLiteral("DELETE FROM projects WHERE id = ?"), {define.id}) == 1;
}

bool OvProjectDefineNode::noteOpened(const OvProjectDefine& define)
{
    return database() && change(QStringLiteral("UPDATE projects SET open_time = ? WHERE id = ?"),
                                {fromTime(define.openTime), define.id}) == 1;
}
