// Preloaded into a program, shifts the clocks that it reads. LOBEGRAPH_CLOCKS names a file of three 64-bit
// numbers, nanoseconds, looked at with every read: the monotonic clock goes ahead by the first, the computer
// was suspended for the second (the clock of the time since boot has it, the monotonic one has not), the date
// is set on by the third.
#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/mman.h>
#include <sys/time.h>
#include <time.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>

namespace {

constexpr std::int64_t kNsPerSecond = 1'000'000'000;

struct Shifts {
  volatile std::int64_t MonotonicNs, SuspendedNs, DateNs;
};

const Shifts& Wished() {
  static const Shifts* shifts = [] {
    static const Shifts kNone{};
    const char* path = getenv("LOBEGRAPH_CLOCKS");
    const int file = path == nullptr ? -1 : open(path, O_RDONLY | O_CLOEXEC);
    if (file < 0) return &kNone;
    void* mapped = mmap(nullptr, sizeof(Shifts), PROT_READ, MAP_SHARED, file, 0);
    close(file);
    return mapped == MAP_FAILED ? &kNone : static_cast<const Shifts*>(mapped);
  }();
  return *shifts;
}

std::int64_t ShiftOf(clockid_t clock) {
  switch (clock) {
    case CLOCK_MONOTONIC:
    case CLOCK_MONOTONIC_COARSE:
    case CLOCK_MONOTONIC_RAW:
      return Wished().MonotonicNs;
    case CLOCK_BOOTTIME:
      return Wished().MonotonicNs + Wished().SuspendedNs;
    case CLOCK_REALTIME:
    case CLOCK_REALTIME_COARSE:
      return Wished().DateNs;
    default:
      return 0;
  }
}

timespec Shifted(const timespec& time, std::int64_t byNs) {
  const std::int64_t ns = time.tv_sec * kNsPerSecond + time.tv_nsec + byNs;
  return {ns / kNsPerSecond, ns % kNsPerSecond};
}

template <class Function>
Function* Real(Function*, const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

#define REAL(name) Real(static_cast<decltype(&name)>(nullptr), #name)

extern "C" {

int clock_gettime(clockid_t clock, timespec* now) noexcept {
  static const auto real = REAL(clock_gettime);
  const int result = real(clock, now);
  if (result == 0) *now = Shifted(*now, ShiftOf(clock));
  return result;
}

int clock_nanosleep(clockid_t clock, int flags, const timespec* time, timespec* left) {
  static const auto real = REAL(clock_nanosleep);
  if ((flags & TIMER_ABSTIME) == 0) return real(clock, flags, time, left);
  const timespec until = Shifted(*time, -ShiftOf(clock));
  return real(clock, flags, &until, left);
}

int pthread_cond_clockwait(pthread_cond_t* condition, pthread_mutex_t* mutex, clockid_t clock,
                           const timespec* time) {
  static const auto real = REAL(pthread_cond_clockwait);
  const timespec until = Shifted(*time, -ShiftOf(clock));
  return real(condition, mutex, clock, &until);
}

int gettimeofday(timeval* now, void*) noexcept {
  timespec time{};
  const int result = clock_gettime(CLOCK_REALTIME, &time);
  *now = {time.tv_sec, static_cast<suseconds_t>(time.tv_nsec / 1000)};
  return result;
}

time_t time(time_t* now) noexcept {
  timespec time{};
  clock_gettime(CLOCK_REALTIME, &time);
  if (now != nullptr) *now = time.tv_sec;
  return time.tv_sec;
}

}  // extern "C"
