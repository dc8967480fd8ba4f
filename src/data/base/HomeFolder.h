#pragma once

#include <string>

namespace lobegraph {

/// Value of a variable of the environment; empty when it is not set.
std::string Environment(const char* name);

/// The user's own folder: $HOME, else what the system's list of users says.
std::string HomeFolder();

/// A folder of the desktop's rule: the variable when it holds an absolute path, else that folder of the
/// user's own one.
/// @param variable such as "XDG_STATE_HOME"
/// @param below such as ".local/state"
std::string DesktopFolder(const char* variable, const std::string& below);

}  // namespace lobegraph
