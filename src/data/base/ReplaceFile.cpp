#include "data/base/ReplaceFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

[[noreturn]] void Fail(int errorNumber, const std::string& path) {
  throw RunTimeError(FaultOfErrno(errorNumber), path);
}

/// Bytes of a file's name, and those that a temporary name adds.
constexpr std::size_t kLongestName = 255;
constexpr std::size_t kAround = 8;

/// A temporary file that is gone unless it was kept.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::filesystem::path& target) {
    const std::string name = target.filename().string().substr(0, kLongestName - kAround);
    name_ = target.parent_path() / ("." + name + ".XXXXXX");
    handle_ = mkostemp(name_.data(), O_CLOEXEC);
    if (handle_ < 0) Fail(errno, target.string());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (handle_ >= 0) close(handle_);
    if (!name_.empty()) unlink(name_.c_str());
  }

  void Write(std::string_view bytes) const {
    while (!bytes.empty()) {
      const ssize_t written = write(handle_, bytes.data(), bytes.size());
      if (written < 0 && errno == EINTR) continue;
      if (written <= 0) Fail(written < 0 ? errno : ENOSPC, name_);
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }

  void KeepAs(const std::string& target, mode_t mode, Outlasts outlasts) {
    fchmod(handle_, mode);
    if (outlasts == Outlasts::PowerCut && fsync(handle_) != 0 && errno != EINVAL) Fail(errno, target);
    const int closed = close(handle_);
    handle_ = -1;
    if (closed != 0 || rename(name_.c_str(), target.c_str()) != 0) Fail(errno, target);
    name_.clear();
  }

 private:
  std::string name_;
  int handle_ = -1;
};

/// The file behind symbolic links, so that a link is not replaced by a plain file.
std::string Target(const std::string& path) {
  std::error_code problem;
  if (!std::filesystem::is_symlink(path, problem)) return path;
  const auto target = std::filesystem::weakly_canonical(path, problem);
  return problem ? path : target.string();
}

mode_t ModeFor(const std::string& target) {
  struct stat status {};
  if (stat(target.c_str(), &status) == 0) {
    if (!S_ISREG(status.st_mode)) Fail(S_ISDIR(status.st_mode) ? EISDIR : ENODEV, target);
    if (faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) Fail(errno, target);
    return status.st_mode & 07777;
  }
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

}  // namespace

void ReplaceFile(const std::string& path, std::string_view bytes, Outlasts outlasts) {
  const std::string target = Target(path);
  const mode_t mode = ModeFor(target);
  TemporaryFile temporary(target);
  temporary.Write(bytes);
  temporary.KeepAs(target, mode, outlasts);
}

int FaultOfErrno(int errorNumber) {
  switch (errorNumber) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return fault::kDiskFull;
    case ENOENT:
    case ENOTDIR:
      return fault::kPathNotFound;
    default:
      return fault::kPathFileAccess;
  }
}

}  // namespace lobegraph
