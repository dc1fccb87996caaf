#pragma once

#include "OvBase/OvBaseExport.h"
#include "OvSeismic/OvStatus.h"

#include <QString>
#include <QVariant>

class QObject;

/// The framework's base services: folders, stored values, start and shut-down. GUI thread.
namespace OvBaseUtil {

/// Prepares the base services: creates the local folder and registers the value types. Values are
/// in memory only until a user has logged in (see OvUserDefineNode::login). Called once by the
/// host, before any window.
OVBASE_EXPORT OvStatus initialize();
OVBASE_EXPORT bool isInitialized();
/// Shut-down: stops the auto-save clock, cancels what still runs, closes the database. May be
/// called more than once.
OVBASE_EXPORT void finish();

/// The per-user data folder: the one that setLocalPath() or the environment variable TARNPICK_HOME
/// names, else the desktop's standard place. Created when missing; empty when it cannot be.
OVBASE_EXPORT QString localPath();
OVBASE_EXPORT void setLocalPath(const QString& folder);
/// Folder for files that may be deleted at any time; created when missing.
OVBASE_EXPORT QString cachePath();

/// The program's key/value store. An invalid value removes the key. Types are kept: text, numbers,
/// truth values, lists and maps of those, dates, colours, rectangles and such; other types are
/// refused. What was set before a login is forgotten with it.
OVBASE_EXPORT QVariant globalValue(const QString& key, const QVariant& defaultValue = {});
OVBASE_EXPORT OvStatus setGlobalValue(const QString& key, const QVariant& value);

/// Values kept for one project, by OvProjectDefine::id.
OVBASE_EXPORT QVariant projectValue(int projectId, const QString& key,
                                    const QVariant& defaultValue = {});
OVBASE_EXPORT OvStatus setProjectValue(int projectId, const QString& key, const QVariant& value);
OVBASE_EXPORT void clearAllProjectValues(int projectId);

/// Whether an object carries the dynamic property name.
OVBASE_EXPORT bool hasProperty(const QObject* object, const char* name);

/// Where the pages of the manual lie, in the language of the program; ends with a slash.
OVBASE_EXPORT QString helpBaseUrl();

/// The human-readable name of a SEG-Y sample format code, translated.
OVBASE_EXPORT QString segyFormatInfo(short formatCode);

} // namespace OvBaseUtil
