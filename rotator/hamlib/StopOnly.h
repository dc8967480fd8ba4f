#pragma once

#include "acquisition/rotator/RotatorTypes.h"

namespace lobegraph {

/// Reaches a rotator that somebody else has left moving, stops it, and is done. A try that hangs is given up.
/// @return whether it was stopped
bool StopOnly(const RotatorChoice& choice);

/// Becomes a process that does only that; whatever hangs in this one ends with it. Does not return.
[[noreturn]] void BecomeStopOnly(const RotatorChoice& choice);

}  // namespace lobegraph
