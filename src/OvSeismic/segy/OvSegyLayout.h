#pragma once

#include "OvSeismic/OvStatus.h"
#include "OvSeismic/segy/OvSegyTypes.h"

class OvPositionalFile;

/// Works out from the file headers where the traces of a SEG-Y file lie.
///
/// No word is believed before it is held against the size of the file. Where the binary header and
/// the first trace header contradict each other, the one that fits the size wins and a warning says
/// so.
namespace OvSegyLayout {

constexpr int binaryHeaderSize = 400;
constexpr int fileHeaderSize = 3600;
constexpr int traceHeaderSize = 240;

/// Fills *info and the raw first textual header. path is what messages and info->path say.
OvStatus read(const OvPositionalFile& file, const QString& path, OvSegyFileInfo* info,
              QByteArray* text);
/// Bytes from one trace header to the next.
qint64 traceSize(const OvSegyFileInfo& info);

} // namespace OvSegyLayout
