#pragma once

#include "OvBase/OvBaseExport.h"

#include <QString>

/// The user service: who works with the program. GUI thread.
class OVBASE_EXPORT OvUserDefineNode
{
public:
    static OvUserDefineNode& instance();

    /// Opens the database at databasePath, migrating an older one, and makes the operating-system
    /// account the current user, adding it on its first login. False on failure; lastError() says
    /// what and where, the file is left as it was, and who was logged in before still is. A missing
    /// or empty file becomes a new database. Restores the remembered language.
    bool login(const QString& databasePath);
    void logout();
    bool isLoggedIn() const;

    /// Key of the current user; -1 when nobody is logged in.
    int userID() const;
    QString userName() const;
    QString lastError() const;

private:
    OvUserDefineNode();
    Q_DISABLE_COPY(OvUserDefineNode)
};
