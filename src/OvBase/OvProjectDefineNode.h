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
    /// All records in table order (by key). They are read from the file only when somebody, in this
    /// program or in another, has changed it since the last call.
    QList<OvProjectDefine> projects() const;
    /// The record of that exact name, or a default one. An indexed look-up with a kept statement:
    /// cheap enough for a delegate to call once a painted row.
    OvProjectDefine projectByName(const QString& name) const;
    /// Stores a new record; returns its key, or a negative number when the name is taken or empty
    /// or the table cannot be written.
    int insertProject(const OvProjectDefine& define);
    /// Rewrites the record of define.id, but for the opening time: another program may have noted a
    /// later one. False when there is no such record or the name clashes.
    bool updateProject(const OvProjectDefine& define);
    /// Removes the record of define.id. False when there is none.
    bool removeProject(const OvProjectDefine& define);
    /// Stores only the opening time of the record of define.id. False when there is none.
    bool noteOpened(const OvProjectDefine& define);
};
