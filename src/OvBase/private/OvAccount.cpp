#include "OvBase/private/OvAccount.h"

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <pwd.h>
#include <unistd.h>
#include <vector>
#endif

namespace {

QString systemName()
{
#ifdef Q_OS_UNIX
    std::vector<char> buffer(16384);
    struct passwd entry;
    struct passwd* found = nullptr;
    if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found)
        return QString::fromLocal8Bit(found->pw_name);
#endif
    return {};
}

} // namespace

QString OvAccount::name()
{
    QString name = systemName();
    for (const char* variable : {"USER", "USERNAME"}) {
        if (name.isEmpty())
            name = QString::fromLocal8Bit(qgetenv(variable));
    }
    return name.isEmpty() ? QStringLiteral("user") : name;
}
