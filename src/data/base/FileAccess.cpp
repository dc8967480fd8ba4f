#include "data/base/FileAccess.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <utility>

#include "data/base/ReplaceFile.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

/// An open file that closes itself.
class Handle {
 public:
  explicit Handle(int value) : value_(value) {}
  Handle(const Handle&) = delete;
  Handle(Handle&& other) noexcept : value_(std::exchange(other.value_, -1)) {}
  Handle& operator=(const Handle&) = delete;
  ~Handle() {
    if (value_ >= 0) close(value_);
  }
  int Value() const { return value_; }

 private:
  int value_;
};

[[noreturn]] void FailToOpen(int errorNumber, const std::string& path) {
  const int number = FaultOfErrno(errorNumber);
  std::error_code ignored;
  const auto folder = std::filesystem::path(path).parent_path();
  const bool folderThere = folder.empty() || std::filesystem::is_directory(folder, ignored);
  throw RunTimeError(number == fault::kPathNotFound && folderThere ? fault::kFileNotFound : number, path);
}

/// The size of a file. @throws RunTimeError 75 for one that is larger
std::size_t CheckedSize(const Handle& file, std::size_t largest) {
  struct stat status {};
  fstat(file.Value(), &status);
  const auto size = static_cast<std::size_t>(status.st_size);
  if (size > largest)
    throw RunTimeError(fault::kPathFileAccess,
                       Advice{"The file has " + std::to_string(size) + " bytes, more than the " +
                              std::to_string(largest) + " that such a file may have."});
  return size;
}

Handle OpenPlainFile(const std::string& path) {
  // Without O_NONBLOCK a named pipe would hold the window until somebody writes to it.
  Handle file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (file.Value() < 0) FailToOpen(errno, path);
  struct stat status {};
  if (fstat(file.Value(), &status) != 0 || !S_ISREG(status.st_mode))
    throw RunTimeError(fault::kPathFileAccess, path);
  return file;
}

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

std::unique_ptr<std::istream> FileAccess::Open(const std::string& path, std::size_t) {
  return std::make_unique<std::istringstream>(Read(path));
}

std::unique_ptr<std::istream> DiskFiles::Open(const std::string& path, std::size_t largest) {
  // Says why when it cannot be read, and waits for no pipe.
  CheckedSize(OpenPlainFile(path), largest);
  auto file = std::make_unique<std::ifstream>(path, std::ios::binary);
  if (!file->is_open()) throw RunTimeError(fault::kPathFileAccess, path);
  return file;
}

std::string DiskFiles::Read(const std::string& path) {
  const Handle file = OpenPlainFile(path);
  std::string bytes(CheckedSize(file, kLargestFile), '\0');
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    const ssize_t got = read(file.Value(), bytes.data() + filled, bytes.size() - filled);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) throw RunTimeError(fault::kPathFileAccess, path);
    if (got == 0) break;
    filled += static_cast<std::size_t>(got);
  }
  bytes.resize(filled);
  return bytes;
}

bool DiskFiles::Exists(const std::string& path) {
  std::error_code problem;
  return std::filesystem::exists(path, problem);
}

void DiskFiles::Replace(const std::string& path, std::string_view bytes) { ReplaceFile(path, bytes); }

void DiskFiles::Remove(const std::string& path) {
  if (unlink(path.c_str()) != 0 && errno != ENOENT) throw RunTimeError(fault::kPathFileAccess, path);
}

std::string FileNameOf(std::string_view path) {
  const auto separator = path.find_last_of("/\\");
  return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

bool HasEnding(std::string_view path, std::string_view ending) {
  if (path.size() < ending.size()) return false;
  return std::ranges::equal(path.substr(path.size() - ending.size()), ending, {}, LowerAscii, LowerAscii);
}

std::string WithEnding(std::string path, std::string_view ending) {
  if (!HasEnding(path, ending)) path += ending;
  return path;
}

}  // namespace lobegraph
