#include "OvBase/OvBaseUtil.h"

#include "OvBase/OvAbstractJob.h"
#include "OvBase/OvDisplayDefine.h"
#include "OvBase/OvProjectDefine.h"
#include "OvBase/OvProjectManager.h"
#include "OvBase/OvTaskManager.h"
#include "OvBase/OvUserDefineNode.h"
#include "OvBase/private/OvValueStore.h"
#include "OvSeismic/segy/OvSegySampleFormat.h"

#include <QCoreApplication>
#include <QDir>
#include <QObject>
#include <QStandardPaths>

namespace {

bool initialized = false;
QString chosenFolder;

/// The folder that the caller or the environment names; empty for the desktop's standard place.
QString namedFolder()
{
    const QString folder =
        chosenFolder.isEmpty() ? QFile::decodeName(qgetenv("TARNPICK_HOME")) : chosenFolder;
    return folder.isEmpty() ? QString() : QDir(folder).absolutePath();
}

/// The folder itself, or nothing when it is missing and cannot be created.
QString created(const QString& folder)
{
    if (folder.isEmpty() || QFileInfo(folder).isDir())
        return folder;
    if (!QDir().mkpath(folder))
        return {};
    // Projects tell what a crew is working on: nobody else's business.
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return folder;
}

void registerTypes()
{
    qRegisterMetaType<OvAbstractJob*>("OvAbstractJob*");
    qRegisterMetaType<OvProjectDefine>("OvProjectDefine");
    qRegisterMetaType<OvDisplayDefine>("OvDisplayDefine");
    qRegisterMetaType<OvFitDisplayDefine>("OvFitDisplayDefine");
    qRegisterMetaType<OvTraceHeaderDefine>("OvTraceHeaderDefine");
}

} // namespace

OvStatus OvBaseUtil::initialize()
{
    registerTypes();
    if (localPath().isEmpty())
        return OvStatus::failure(
            QCoreApplication::translate("OvBaseUtil",
                                        "The data folder %1 cannot be created. Check that "
                                        "its parent folder can be written.")
                .arg(QDir::toNativeSeparators(namedFolder())));
    initialized = true;
    return OvStatus::success();
}

bool OvBaseUtil::isInitialized()
{
    return initialized;
}

void OvBaseUtil::finish()
{
    OvProjectManager::instance().closeProject();
    OvProjectManager::instance().finish();
    OvTaskManager::instance().cancelAll();
    OvUserDefineNode::instance().logout();
    initialized = false;
}

QString OvBaseUtil::localPath()
{
    const QString named = namedFolder();
    return created(named.isEmpty()
                       ? QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation)
                       : named);
}

void OvBaseUtil::setLocalPath(const QString& folder)
{
    chosenFolder = folder;
}

QString OvBaseUtil::cachePath()
{
    const QString named = namedFolder();
    return created(named.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::CacheLocation)
                                   : named + QStringLiteral("/cache"));
}

QVariant OvBaseUtil::globalValue(const QString& key, const QVariant& defaultValue)
{
    const QVariant value = OvValueStore::global().value(key);
    return value.isValid() ? value : defaultValue;
}

OvStatus OvBaseUtil::setGlobalValue(const QString& key, const QVariant& value)
{
    return OvValueStore::global().setValue(key, value);
}

QVariant OvBaseUtil::projectValue(int projectId, const QString& key, const QVariant& defaultValue)
{
    const QVariant value = OvValueStore::project(projectId).value(key);
    return value.isValid() ? value : defaultValue;
}

OvStatus OvBaseUtil::setProjectValue(int projectId, const QString& key, const QVariant& value)
{
    return OvValueStore::project(projectId).setValue(key, value);
}

void OvBaseUtil::clearAllProjectValues(int projectId)
{
    OvValueStore::project(projectId).clear();
}

bool OvBaseUtil::hasProperty(const QObject* object, const char* name)
{
    return object && object->dynamicPropertyNames().contains(name);
}

QString OvBaseUtil::helpBaseUrl()
{
    return QCoreApplication::translate("OvBaseUtil",
                                       "http://127.0.0.1:8642/ManualWeb/onlinehelp/en/");
}

QString OvBaseUtil::segyFormatInfo(short formatCode)
{
    return ovSegyFormatName(formatCode);
}
