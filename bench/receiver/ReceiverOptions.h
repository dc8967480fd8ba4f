#pragma once

#include "bench/receiver/ReceiverSettings.h"

namespace CLI {
class App;
}

namespace lobegraph {

/// Adds what a receiver can do to a signal to a command line. @param settings filled while it is parsed
void AddReceiverOptions(CLI::App& app, ReceiverSettings& settings);

}  // namespace lobegraph
