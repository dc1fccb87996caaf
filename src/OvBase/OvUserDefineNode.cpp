#include "OvBase/OvUserDefineNode.h"

#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvTranslator.h"
#include "OvBase/private/OvAccount.h"
#include "OvBase/private/OvSession.h"

#include <QDateTime>
#include <QDir>

namespace {

OvStatus addUser(OvDatabase& database, const QString& name)
{
    return database.change(
        QStringLiteral("INSERT OR IGNORE INTO users (name, create_time) VALUES (?, ?)"),
        {name, QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs)});
}

int userByName(OvDatabase& database, const QString& name)
{
    const auto row = database.read(QStringLiteral("SELECT id FROM users WHERE name = ?"), {name});
    return row->next() ? row->value(0).toInt() : -1;
}

/// Key of the user, who is added on a first login.
OvStatus identify(OvDatabase& database, const QString& name, int* userId)
{
    *userId = userByName(database, name);
    if (*userId >= 0)
        return OvStatus::success();
    OvStatus status = addUser(database, name);
    *userId = userByName(database, name);
    if (!status || *userId >= 0)
        return status;
    return OvStatus::failure(OvDatabase::tr("The user %1 cannot be read from the database %2.")
                                 .arg(name, QDir::toNativeSeparators(database.path())));
}

void closeSession()
{
    OvSession::instance().close();
}

} // namespace

OvUserDefineNode::OvUserDefineNode() = default;

OvUserDefineNode& OvUserDefineNode::instance()
{
    static OvUserDefineNode node;
    return node;
}

bool OvUserDefineNode::login(const QString& databasePath)
{
    if (!OvBaseUtil::isInitialized()) {
        const OvStatus ready = OvBaseUtil::initialize();
        if (!ready)
            qWarning("%s", qUtf8Printable(ready.message()));
    }
    OvSession& session = OvSession::instance();
    auto database = std::make_unique<OvDatabase>();
    const QString name = OvAccount::name();
    int userId = -1;
    OvStatus status = database->open(databasePath);
    if (status)
        status = identify(*database, name, &userId);
    session.lastError = status.message();
    if (!status) {
        qWarning("%s", qUtf8Printable(status.message()));
        return false;
    }
    session.close();
    session.database = std::move(database);
    session.userId = userId;
    session.userName = name;
    // The database driver is gone by the time static objects are.
    qRemovePostRoutine(closeSession);
    qAddPostRoutine(closeSession);
    OvTranslator::instance().restore();
    return true;
}

void OvUserDefineNode::logout()
{
    OvSession::instance().close();
}

bool OvUserDefineNode::isLoggedIn() const
{
    return OvSession::instance().database != nullptr;
}

int OvUserDefineNode::userID() const
{
    return OvSession::instance().userId;
}

QString OvUserDefineNode::userName() const
{
    return OvSession::instance().userName;
}

QString OvUserDefineNode::lastError() const
{
    return OvSession::instance().lastError;
}
