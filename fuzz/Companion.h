#pragma once

#include "fuzz/Mutator.h"

namespace lobegraph::fuzz {

/// Gives a file to every verb of lobegraph-cli, in this process and without a disk: report, render, convert
/// into every format that is written, and what was written back again.
/// @throws BrokenPromise; anything else that comes out is a fault as well
void TryCompanion(const Sample& sample);

}  // namespace lobegraph::fuzz
