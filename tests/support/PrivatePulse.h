#pragma once

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "support/ChildProcess.h"

namespace lobegraph::test {

/// A sound server of the test's own on a socket in a temporary folder: nothing is played on anybody's
/// speakers. While it lives, PULSE_SERVER points at it; it is stopped by its own process id.
class PrivatePulse {
 public:
  /// A sink whose monitor is the default input: what is played into it is what the program hears.
  static std::vector<std::string> NullSink() {
    return {
        "module-null-sink sink_name=rx rate=44100 channels=2 format=s16le norewinds=1 "
        "sink_properties=device.description=Receiver"};
  }

  explicit PrivatePulse(const std::vector<std::string>& modules = NullSink()) : folder_(TemporaryFolder()) {
    std::vector<std::string> arguments{"pulseaudio",
                                       "-n",
                                       "--daemonize=no",
                                       "--exit-idle-time=-1",
                                       "--use-pid-file=no",
                                       "--disable-shm=yes",
                                       "--realtime=yes",
                                       "--high-priority=yes",
                                       "-L",
                                       "module-native-protocol-unix auth-anonymous=1 socket=" + Socket()};
    for (const std::string& module : modules) arguments.insert(arguments.end(), {"-L", module});
    setenv("PULSE_SERVER", Server().c_str(), 1);
    server_ = std::make_unique<ChildProcess>(
        arguments, folder_ / "server.log",
        std::map<std::string, std::string>{{"HOME", folder_}, {"XDG_RUNTIME_DIR", folder_}});
    WaitUntilItAnswers();
  }
  ~PrivatePulse() {
    Kill();
    unsetenv("PULSE_SERVER");
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  PrivatePulse(const PrivatePulse&) = delete;
  PrivatePulse& operator=(const PrivatePulse&) = delete;

  std::string Server() const { return "unix:" + Socket(); }
  const std::filesystem::path& Folder() const { return folder_; }
  /// Breaks off in the middle of whatever it does.
  void Kill() { server_->Kill(); }
  /// Stands still, connections open, until Thaw.
  void Freeze() { server_->Signal(SIGSTOP); }
  void Thaw() { server_->Signal(SIGCONT); }
  /// Runs pactl against it. @return exit code
  int Pactl(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), "pactl");
    return ChildProcess(arguments).Wait();
  }

 private:
  static std::filesystem::path TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "lobegraph-pulse-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
    return name;
  }
  std::string Socket() const { return folder_ / "pulse.sock"; }
  void WaitUntilItAnswers() const {
    for (int attempt = 0; attempt < 200; ++attempt) {
      if (std::filesystem::exists(Socket()) && Pactl({"info"}) == 0) return;
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    throw std::runtime_error("the private sound server does not answer");
  }

  std::filesystem::path folder_;
  std::unique_ptr<ChildProcess> server_;
};

}  // namespace lobegraph::test
