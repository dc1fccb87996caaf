#pragma once

#include "OvBase/OvBaseExport.h"
#include "OvSeismic/OvStatus.h"

class OvDatabase;

/// The numbered schema files, compiled in.
namespace OvSchema {

/// Marks the files of this program ("Tarn" in ASCII).
constexpr int ApplicationId = 1415672430;

/// The user_version that the last schema file leaves behind.
OVBASE_EXPORT int latestVersion();
/// Runs the schema files that database has not seen yet, all in one transaction.
OVBASE_EXPORT OvStatus migrate(OvDatabase& database);

} // namespace OvSchema
