#pragma once

#include <string>
#include <string_view>

namespace lobegraph {

/// What new content is to outlast.
enum class Outlasts {
  PowerCut,  ///< waits for the disk
  Kill,      ///< for what can be made again from its source
};

/// Gives a file new content in one step: a temporary file beside it, of a name that nobody can guess, then
/// renamed over it. A kill or a full disk leaves the old content or the new, never a mix. A symbolic link
/// keeps pointing at the file that it points at; the permissions of a replaced file stay.
/// @throws RunTimeError 61 (disk full), 76 (folder gone), 75 (anything else: no right, a directory, a
/// device); the old content is then untouched and no temporary file is left.
void ReplaceFile(const std::string& path, std::string_view bytes, Outlasts outlasts = Outlasts::PowerCut);

/// The number a user is shown for a failed system call on a file.
/// @param errorNumber a value of errno
int FaultOfErrno(int errorNumber);

}  // namespace lobegraph
