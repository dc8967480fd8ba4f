#pragma once

#include "acquisition/serial/ComPorts.h"
#include "cli/Command.h"
#include "cli/Options.h"

namespace lobegraph {

/// Lists what each COM number means on this computer, with the adapters that have none; or gives a device to
/// a number, as the input chooser does. Opens no port, so it is safe beside a running collection.
/// @return kAllDone, or kSomeFailed when the assignment could not be saved
int RunPorts(const PortsRequest& request, ComPorts& ports, const CommandParts& parts);

}  // namespace lobegraph
