#pragma once

#include "Command.h"

/// `tarnpick-batch info FILE [--json]`: what the headers of a SEG-Y file say.
namespace InfoCommand {

Command command();

} // namespace InfoCommand
