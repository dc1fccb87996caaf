#pragma once

#include "OvSeismic/OvStatus.h"

#include <memory>

class OvPickPrior;
class OvSegyFile;
class OvSegyIndex;

namespace GuideFile {

/// Learns a guide from a first-break file of the SEG-Y file or from the text export of its first
/// breaks. Fails, naming the file and the line, when it is neither, belongs to other traces, or
/// holds too few picks.
OvStatus learn(const QString& path, const OvSegyFile& segy, const OvSegyIndex& index,
               std::shared_ptr<const OvPickPrior>* prior);

} // namespace GuideFile
