#pragma once

#include "OvBase/OvBaseExport.h"
#include "OvBase/OvProjectDefine.h"

#include <QList>

/// The project table. Cheap to construct: made on the stack for each use. GUI thread.
///
/// While nobody is logged in there are no records, and every change fails.
class OVBASE_EXPORT OvProjectDefineNode
{
public:
    /// All records in table order (by key).
    QList<OvProjectDefine> projects() const;
    /// The record of that exact name, or a default one. An indexed look-up with a kept statement:
    /// cheap enough for a delegate to call once a painted row.
    OvProjectDefine projectByName(const QString& name) const;
    /// Stores a new record; returns its key, or a negative number when the name is taken or empty
    /// or the table cannot be written.
    int insertProject(const OvProjectDefine& define);
    /// Rewrites the record of define.id. False when there is none or the name clashes.
    bool updateProject(const OvProjectDefine& define);
    /// Removes the record of define.id. False when there is none.
    bool removeProject(const OvProjectDefine& define);
    /// Stores only the opening time of the record of define.id. False when there is none.
    bool noteOpened(const OvProjectDefine& define);
};
