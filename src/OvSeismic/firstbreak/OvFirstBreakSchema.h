#pragma once

#include "OvSeismic/OvStatus.h"
#include "OvSeismic/segy/OvSegyTypes.h"

struct OvFirstBreakConnection;

/// The tables of a first-break file, and the checks before one is believed.
///
/// `meta` holds text values by key; `trace_block` one row for up to 256 consecutive traces:
/// first_trace, trace_count, times (ms), states, confidences; `run_gather` the gathers that an
/// automatic run has done. Schema 1 had `gather` instead, one row a field record. The application
/// id marks the kind of file, user_version the schema.
namespace OvFirstBreakSchema {

constexpr quint32 applicationId = 0x4F764642;
constexpr int version = 2;
constexpr int versionByRecord = 1;

/// Makes an empty first-break file. It appears under its name complete; when another program made
/// one meanwhile, that one stays.
OvStatus create(const QString& path, const OvSegyFileInfo& segy);
/// Looks at the first bytes only, so that a file of another kind is left alone.
OvStatus checkKind(const QString& path);
/// Opens an existing file.
OvStatus connect(const OvFirstBreakConnection& file);
void disconnect(const OvFirstBreakConnection& file);
/// From here on a commit that has returned survives a crash.
OvStatus makeDurable(const OvFirstBreakConnection& file);
/// The integrity of the file, its schema version and the SEG-Y file it belongs to, which may have
/// grown since.
OvStatus check(const OvFirstBreakConnection& file, const OvSegyFileInfo& segy);
/// Whether traces were added to the SEG-Y file since: the same name, more bytes, more traces. First
/// breaks stay with their traces then.
bool hasGrown(const OvFirstBreakConnection& file, const OvSegyFileInfo& segy);
/// Takes over the new size. Within the caller's transaction.
OvStatus followGrowth(const OvFirstBreakConnection& file, const OvSegyFileInfo& segy);
int versionOf(const OvFirstBreakConnection& file);
/// Puts the tables of this version in the place of those of schema 1. Within the caller's
/// transaction.
OvStatus replaceOldTables(const OvFirstBreakConnection& file);

} // namespace OvFirstBreakSchema
