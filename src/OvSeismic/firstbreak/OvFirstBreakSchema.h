#pragma once

#include "OvSeismic/OvStatus.h"
#include "OvSeismic/segy/OvSegyTypes.h"

/// The tables of a first-break file, and the checks before one is believed.
///
/// `meta` holds text values by key; `gather` one row a field record: trace_count, times (ms),
/// states, confidences. The application id marks the kind of file, user_version the schema.
namespace OvFirstBreakSchema {

constexpr quint32 applicationId = 0x4F764642;
constexpr int version = 1;

/// Makes an empty first-break file. It appears under its name complete; when another program made
/// one meanwhile, that one stays.
OvStatus create(const QString& path, const OvSegyFileInfo& segy);
/// Looks at the first bytes only, so that a file of another kind is left alone.
OvStatus checkKind(const QString& path);
/// Opens an existing file as a connection of the calling thread.
OvStatus connect(const QString& connection, const QString& path, bool readOnly);
void disconnect(const QString& connection);
/// From here on a commit that has returned survives a crash.
OvStatus makeDurable(const QString& connection, const QString& path);
/// The integrity of the file, its schema version and the SEG-Y file it belongs to.
OvStatus check(const QString& connection, const QString& path, const OvSegyFileInfo& segy);

} // namespace OvFirstBreakSchema
