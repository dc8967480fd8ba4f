#pragma once

#include <string>

namespace lobegraph {

/// The user's own folder: $HOME when it is an absolute path, else that of the password file.
std::string HomeFolder();

/// A folder of the user's by the desktop's rule: that of the variable when it is an absolute path, else this
/// one in the home folder.
/// @param variable such as "XDG_STATE_HOME" @param inHome such as ".local/state"
std::string UserFolder(const char* variable, const std::string& inHome);

}  // namespace lobegraph
