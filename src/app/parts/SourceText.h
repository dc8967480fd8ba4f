#pragma once

#include <string>

#include "settings/InputChoice.h"

namespace lobegraph {

/// What delivers the level, as the main window names it: "TARVEN, COM3".
/// @param soundSource name of the opened sound source; empty before the first capture
std::string SourceText(const InputChoice& choice, const std::string& soundSource);

}  // namespace lobegraph
