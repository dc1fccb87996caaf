#include "OvBase/private/OvSchema.h"

#include "OvBase/private/OvDatabase.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <limits>

namespace {

QFileInfoList schemaFiles()
{
    return QDir(QStringLiteral(":/OvBase/schema"))
        .entryInfoList({QStringLiteral("*.sql")}, QDir::Files, QDir::Name);
}

int versionOf(const QFileInfo& file)
{
    return file.fileName().section(QLatin1Char('_'), 0, 0).toInt();
}

int currentVersion(OvDatabase& database)
{
    const auto statement = database.read(QStringLiteral("PRAGMA user_version"));
    return statement->next() ? statement->value(0).toInt() : std::numeric_limits<int>::max();
}

OvStatus cannotMigrate(const QString& path, const QString& what)
{
    return OvStatus::failure(
        OvDatabase::tr("The database %1 cannot be brought up to date (%2). It was left as it is.")
            .arg(QDir::toNativeSeparators(path), what.trimmed()));
}

OvStatus runFile(OvDatabase& database, const QFileInfo& info)
{
    QFile file(info.filePath());
    if (!file.open(QIODevice::ReadOnly))
        return cannotMigrate(database.path(), info.fileName());
    const QString script = QString::fromUtf8(file.readAll());
    const QStringList parts = script.split(QRegularExpression(QStringLiteral(";\\s*(\\n|$)")));
    for (const QString& part : parts) {
        if (part.trimmed().isEmpty())
            continue;
        const auto statement = database.run(part);
        if (!statement->ok())
            return cannotMigrate(database.path(),
                                 info.fileName() + QStringLiteral(": ") + statement->errorText());
    }
    return OvStatus::success();
}

} // namespace

int OvSchema::latestVersion()
{
    static const int latest = versionOf(schemaFiles().constLast());
    return latest;
}

OvStatus OvSchema::migrate(OvDatabase& database)
{
    if (currentVersion(database) >= latestVersion())
        return OvStatus::success();
    return database.write([&database] {
        // Read again: another program may have migrated while this one waited.
        const int version = currentVersion(database);
        OvStatus status = OvStatus::success();
        const QFileInfoList files = schemaFiles();
        for (const QFileInfo& file : files) {
            if (status && versionOf(file) > version)
                status = runFile(database, file);
        }
        return status;
    });
}
