#include "OvBase/private/OvSession.h"

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
