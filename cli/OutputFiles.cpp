#include "cli/OutputFiles.h"

#include <cerrno>
#include <filesystem>
#include <fstream>

#include "data/base/ReplaceFile.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

namespace fs = std::filesystem;

/// A pipe or a device; also this program's own output, whatever it leads to.
bool IsStream(const std::string& path) {
  std::error_code problem;
  const fs::file_status status = fs::status(path, problem);
  const bool own = path.starts_with("/dev/") || path.starts_with("/proc/");
  return fs::exists(status) && !fs::is_directory(status) && (own || !fs::is_regular_file(status));
}

void Write(const std::string& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary);
  if (!file) throw RunTimeError(FaultOfErrno(errno), path);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) throw RunTimeError(FaultOfErrno(errno), path);
}

}  // namespace

void OutputFiles::Replace(const std::string& path, std::string_view bytes) {
  if (IsStream(path)) return Write(path, bytes);
  ReplaceFile(path, bytes, Outlasts::Kill);
}

}  // namespace lobegraph
