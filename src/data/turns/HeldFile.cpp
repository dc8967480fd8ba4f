#include "data/turns/HeldFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

#include "data/base/ReplaceFile.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

constexpr mode_t kMode = 0644;

int FaultOfOpening(int errorNumber) {
  return errorNumber == EEXIST ? fault::kFileExists : FaultOfErrno(errorNumber);
}

}  // namespace

HeldFile::HeldFile(const std::string& path, Open how)
    : path_(path),
      handle_(open(path.c_str(),
                   how == Open::New ? O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC : O_RDWR | O_CLOEXEC, kMode)) {
  if (handle_ < 0) throw RunTimeError(FaultOfOpening(errno), path_);
  flock(handle_, LOCK_SH | LOCK_NB);  // a file system without locks keeps the file without a hold
}

HeldFile::~HeldFile() { close(handle_); }

void HeldFile::Rewrite(std::string_view bytes) const {
  WriteAt(bytes, 0);
  if (ftruncate(handle_, static_cast<off_t>(bytes.size())) != 0)
    throw RunTimeError(FaultOfErrno(errno), path_);
}

void HeldFile::Append(std::string_view bytes) {
  WriteAt(bytes, end_);
  end_ += static_cast<long long>(bytes.size());
}

void HeldFile::WriteAt(std::string_view bytes, long long offset) const {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t written = pwrite(handle_, bytes.data() + done, bytes.size() - done,
                                   static_cast<off_t>(offset) + static_cast<off_t>(done));
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) throw RunTimeError(FaultOfErrno(written < 0 ? errno : ENOSPC), path_);
    done += static_cast<std::size_t>(written);
  }
}

bool HeldElsewhere(const std::string& path) {
  const int handle = open(path.c_str(), O_RDWR | O_CLOEXEC);
  if (handle < 0) return false;
  const bool held = flock(handle, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
  close(handle);
  return held;
}

}  // namespace lobegraph
