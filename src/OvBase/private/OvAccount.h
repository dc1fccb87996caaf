#pragma once

#include <QString>

namespace OvAccount {

/// Name of the operating-system account that runs the program; "user" when there is none.
QString name();

} // namespace OvAccount
