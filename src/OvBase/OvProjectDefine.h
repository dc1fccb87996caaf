#pragma once

#include "OvBase/OvBaseExport.h"

#include <QDateTime>
#include <QMetaType>
#include <QString>

/// A project record: a named pointer to a folder of SEG-Y data.
struct OVBASE_EXPORT OvProjectDefine
{
    qint32 id = -1; ///< key given by the project table, never reused; -1 for a record not stored
    QString name;   ///< unique in the table, compared exactly
    qint32 userId = -1; ///< creator, OvUserDefineNode::userID()
    QString dataPath;   ///< absolute, with '/' separators
    QString description;
    QDateTime openTime;   ///< when it was last opened, local time; invalid when never
    QDateTime createTime; ///< local time

    /// True for a stored record with a name.
    bool isValid() const { return id >= 0 && !name.isEmpty(); }
};

Q_DECLARE_METATYPE(OvProjectDefine)
