#pragma once

#include "OvSeismic/firstbreak/OvFirstBreaks.h"

#include <QByteArray>

/// The columns of a first-break row as they are stored: 4-byte little-endian floats, 1-byte states.
namespace OvFirstBreakBlobs {

QByteArray fromFloats(const std::vector<float>& values);
QByteArray fromStates(const std::vector<OvPickState>& states);
/// False when the blob does not hold exactly count valid values.
bool toFloats(const QByteArray& blob, int count, std::vector<float>* values);
bool toStates(const QByteArray& blob, int count, std::vector<OvPickState>* states);

} // namespace OvFirstBreakBlobs
