// Preloaded into a program, kills it at one of its operations on the files below a folder: before the
// operation, or in the middle of a write. LOBEGRAPH_KILL_IN names the folder, LOBEGRAPH_KILL_AT the number of
// the operation (counted from 1; nothing is counted until the file LOBEGRAPH_KILL_FROM exists),
// LOBEGRAPH_KILL_HALFWAY the middle.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/uio.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

std::atomic<int> operations = 0;

const char* Wish(const char* name) {
  const char* value = getenv(name);
  return value != nullptr ? value : "";
}

bool Concerned(const char* path) {
  const char* folder = Wish("LOBEGRAPH_KILL_IN");
  return *folder != '\0' && strncmp(path, folder, strlen(folder)) == 0 &&
         access(Wish("LOBEGRAPH_KILL_FROM"), F_OK) == 0;
}

bool Concerned(int handle) {
  char link[64];
  char path[4096];
  snprintf(link, sizeof link, "/proc/self/fd/%d", handle);
  const ssize_t length = readlink(link, path, sizeof path - 1);
  if (length <= 0 || path[0] != '/') return false;
  path[length] = '\0';
  return Concerned(path);
}

/// @return this is the operation in whose middle the end comes; at its beginning it has come already
bool CountAndKill() {
  if (++operations != atoi(Wish("LOBEGRAPH_KILL_AT"))) return false;
  if (*Wish("LOBEGRAPH_KILL_HALFWAY") != '\0') return true;
  raise(SIGKILL);
  return false;
}

template <class Function>
Function* Real(Function*, const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

#define REAL(name) Real(static_cast<decltype(&name)>(nullptr), #name)

extern "C" {

ssize_t write(int handle, const void* bytes, size_t count) {
  static const auto real = REAL(write);
  if (!Concerned(handle) || !CountAndKill()) return real(handle, bytes, count);
  const ssize_t written = real(handle, bytes, count / 2);
  raise(SIGKILL);
  return written;
}

ssize_t pwrite(int handle, const void* bytes, size_t count, off_t at) {
  static const auto real = REAL(pwrite);
  if (!Concerned(handle) || !CountAndKill()) return real(handle, bytes, count, at);
  const ssize_t written = real(handle, bytes, count / 2, at);
  raise(SIGKILL);
  return written;
}

ssize_t writev(int handle, const iovec* parts, int count) {
  static const auto real = REAL(writev);
  if (Concerned(handle) && CountAndKill()) raise(SIGKILL);
  return real(handle, parts, count);
}

int fsync(int handle) {
  static const auto real = REAL(fsync);
  if (Concerned(handle) && CountAndKill()) raise(SIGKILL);
  return real(handle);
}

int ftruncate(int handle, off_t length) noexcept {
  static const auto real = REAL(ftruncate);
  if (Concerned(handle) && CountAndKill()) raise(SIGKILL);
  return real(handle, length);
}

int rename(const char* from, const char* to) noexcept {
  static const auto real = REAL(rename);
  if (Concerned(to) && CountAndKill()) raise(SIGKILL);
  return real(from, to);
}

}  // extern "C"
