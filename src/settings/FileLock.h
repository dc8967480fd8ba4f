#pragma once

#include <chrono>
#include <string>

namespace lobegraph {

/// Keeps other processes that take the same lock (flock) away while it lives. The lock file stays behind,
/// empty.
class FileLock {
 public:
  /// Waits for the lock, asleep, at most `patience`. A file system without locks counts as locked: saving
  /// without company is better than not saving.
  FileLock(const std::string& path, std::chrono::milliseconds patience);
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  ~FileLock();

  /// False when somebody else held the lock all the time or the lock file cannot be opened.
  bool Held() const { return held_; }

 private:
  int handle_;
  bool held_ = false;
};

}  // namespace lobegraph
