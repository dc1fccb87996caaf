#pragma once

#include "OvSeismic/OvStatus.h"

/// Looks at a database file without changing it.
namespace OvDatabaseCheck {

/// Success when path is missing, of no bytes, or a sound database of this program, no newer than
/// the program, that can be written. Otherwise a message for the user.
OvStatus check(const QString& path);

} // namespace OvDatabaseCheck
