#pragma once

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace lobegraph::test {

/// A program that a test runs beside itself. Ends with the test, whatever becomes of the test, and is ended
/// by its own id.
class ChildProcess {
 public:
  /// @param arguments the program first. @param output file for what it prints. @param environment added to
  /// the test's.
  explicit ChildProcess(std::vector<std::string> arguments, const std::string& output = "/dev/null",
                        const std::map<std::string, std::string>& environment = {}) {
    std::vector<char*> argv;
    for (std::string& argument : arguments) argv.push_back(argument.data());
    argv.push_back(nullptr);
    pid_ = fork();
    if (pid_ < 0) throw std::runtime_error("fork failed");
    if (pid_ == 0) Become(argv, output, environment);
  }
  ~ChildProcess() { Kill(); }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  void Signal(int number) const {
    if (pid_ > 0) kill(pid_, number);
  }
  /// Ends it at once and waits until it is gone.
  void Kill() {
    Signal(SIGKILL);
    Wait();
  }
  /// Waits for its end. @return exit code, 128 + signal, or the code of the first wait
  int Wait() {
    if (pid_ <= 0) return exitCode_;
    int status = 0;
    while (waitpid(pid_, &status, 0) < 0 && errno == EINTR) continue;
    pid_ = -1;
    exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return exitCode_;
  }

 private:
  [[noreturn]] static void Become(std::vector<char*>& argv, const std::string& output,
                                  const std::map<std::string, std::string>& environment) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const int out = open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    dup2(out, STDOUT_FILENO);
    dup2(out, STDERR_FILENO);
    for (const auto& [name, value] : environment) setenv(name.c_str(), value.c_str(), 1);
    execvp(argv.front(), argv.data());
    _exit(127);
  }

  pid_t pid_ = -1;
  int exitCode_ = -1;
};

}  // namespace lobegraph::test
