#include "OvBase/private/OvSession.h"

void OvProjectList::noteOpened(int id, const QDateTime& time)
{
    for (OvProjectDefine& project : records) {
        if (project.id == id)
            project.openTime = time;
    }
}

OvSession& OvSession::instance()
{
    static OvSession session;
    return session;
}

void OvSession::close()
{
    database.reset();
    userId = -1;
    userName.clear();
    projects = {};
    memoryValues.clear();
    projectValues.clear();
}
