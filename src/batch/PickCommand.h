#pragma once

#include "Command.h"

/// `tarnpick-batch pick FILE --out OUT.csv [--param name=value ...] [--threads N]`: picks the first
/// breaks of a SEG-Y file into a comma-separated table.
namespace PickCommand {

Command command();

} // namespace PickCommand
