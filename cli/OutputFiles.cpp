#include "cli/OutputFiles.h"

#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>

#include "data/base/ReplaceFile.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

namespace fs = std::filesystem;

void Write(const std::string& name, const std::string& path, std::string_view bytes) {
  std::ofstream file(name, std::ios::binary | std::ios::trunc);
  if (!file) throw RunTimeError(FaultOfErrno(errno), path);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) throw RunTimeError(FaultOfErrno(errno), path);
}

}  // namespace

void OutputFiles::Replace(const std::string& path, std::string_view bytes) {
  std::error_code problem;
  if (fs::is_directory(path, problem)) throw RunTimeError(fault::kPathFileAccess, path);
  // A link, a pipe or a device is written to, not replaced.
  if (fs::exists(path, problem) && !fs::is_regular_file(fs::symlink_status(path, problem)))
    return Write(path, path, bytes);
  const fs::path target(path);
  const fs::path beside =
      target.parent_path() / ("." + target.filename().string() + "." + std::to_string(getpid()));
  try {
    Write(beside.string(), path, bytes);
    fs::rename(beside, target);
  } catch (const RunTimeError&) {
    fs::remove(beside, problem);
    throw;
  } catch (const fs::filesystem_error& error) {
    fs::remove(beside, problem);
    throw RunTimeError(FaultOfErrno(error.code().value()), path);
  }
}

}  // namespace lobegraph
