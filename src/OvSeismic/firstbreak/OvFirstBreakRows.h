#pragma once

#include "OvSeismic/firstbreak/OvFirstBreakBlocks.h"
#include "OvSeismic/firstbreak/OvFirstBreakConnection.h"

class OvSegyIndex;

/// The rows of a first-break file as blocks.
namespace OvFirstBreakRows {

/// Adds the blocks of these numbers, ascending, to *blocks, empty ones where there is no row. Few
/// statements whatever their number.
OvStatus read(const OvFirstBreakConnection& file, const std::vector<qint64>& numbers,
              OvFirstBreakBlocks* blocks);
/// Replaces the rows of all blocks. Within the caller's transaction.
OvStatus write(const OvFirstBreakConnection& file, const OvFirstBreakBlocks& blocks);
/// The rows of a file of schema 1, one a field record, by the traces that index gives the record.
/// A record of another number of traces, or one that index lacks, is a failure.
OvStatus readRecords(const OvFirstBreakConnection& file, const OvSegyIndex& index,
                     OvFirstBreakBlocks* blocks);

} // namespace OvFirstBreakRows
