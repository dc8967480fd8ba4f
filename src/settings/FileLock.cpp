#include "settings/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <thread>

namespace lobegraph {

FileLock::FileLock(const std::string& path, std::chrono::milliseconds patience)
    : handle_(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666)) {
  const auto until = std::chrono::steady_clock::now() + patience;
  while (handle_ >= 0 && !held_) {
    const bool taken = flock(handle_, LOCK_EX | LOCK_NB) != 0 && (errno == EWOULDBLOCK || errno == EINTR);
    held_ = !taken;
    if (taken && std::chrono::steady_clock::now() >= until) return;
    if (taken) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

FileLock::~FileLock() {
  if (handle_ >= 0) close(handle_);
}

}  // namespace lobegraph
