#pragma once

#include <string>
#include <string_view>

namespace lobegraph {

/// Whether the disk is waited for. What is worthless after a power cut need not be: then a cut may leave the
/// file empty.
enum class Flush { Yes, No };

/// Gives a file new content in one step: a temporary file beside it, synced, then renamed over it. A kill, a
/// full disk or a power cut leaves the old content or the new, never a mix. A symbolic link keeps pointing at
/// the file that it points at; the permissions of a replaced file stay.
/// @throws RunTimeError 61 (disk full), 76 (folder gone), 75 (anything else: no right, a directory, a
/// device); the old content is then untouched and no temporary file is left.
void ReplaceFile(const std::string& path, std::string_view bytes, Flush flush = Flush::Yes);

/// The number a user is shown for a failed system call on a file.
/// @param errorNumber a value of errno
int FaultOfErrno(int errorNumber);

}  // namespace lobegraph
