#include "rotator/hamlib/StopOnly.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <string>

#include "rotator/hamlib/HamlibRotator.h"

namespace lobegraph {
namespace {

constexpr int kTries = 12;
constexpr unsigned kTrySeconds = 5;
constexpr useconds_t kBetweenTriesUs = 500'000;

int TryOnce(const RotatorChoice& choice) {
  alarm(kTrySeconds);
  try {
    HamlibRotator rotator;
    rotator.Open(choice);
    rotator.Stop();
    return 0;
  } catch (const DeviceFault&) {
    return 1;
  }
}

/// In a process of its own, so that a call that hangs ends with it.
bool Try(const RotatorChoice& choice) {
  const pid_t child = fork();
  if (child == 0) _exit(TryOnce(choice));
  int status = 1;
  while (child > 0 && waitpid(child, &status, 0) < 0 && errno == EINTR) continue;
  return child > 0 && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void Silence() {
  const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
  dup2(nowhere, STDIN_FILENO);
  dup2(nowhere, STDOUT_FILENO);
}

}  // namespace

bool StopOnly(const RotatorChoice& choice) {
  for (int tried = 0; tried < kTries; ++tried) {
    if (Try(choice)) return true;
    usleep(kBetweenTriesUs);
  }
  return false;
}

void BecomeStopOnly(const RotatorChoice& choice) {
  Silence();
  // The port that the call hangs on is not to be held by this process any longer.
  close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
  std::string program = "lobegraph-rotator", option = "--stop", model = std::to_string(choice.Model),
              baud = std::to_string(choice.Baud), port = choice.Port;
  std::array<char*, 6> arguments{program.data(), option.data(), model.data(),
                                 baud.data(),    port.data(),   nullptr};
  execv("/proc/self/exe", arguments.data());
  _exit(1);
}

}  // namespace lobegraph
