#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>

#include "support/ChildProcess.h"

namespace lobegraph::test {

/// A port of this computer that nobody listens on.
inline int FreePort() {
  const int probe = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  if (bind(probe, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
      getsockname(probe, reinterpret_cast<sockaddr*>(&address), &size) != 0)
    throw std::runtime_error("no free port");
  close(probe);
  return ntohs(address.sin_port);
}

/// A connection to a rotator's daemon, beside the program that is tested.
class DaemonLine {
 public:
  explicit DaemonLine(int port) : handle_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    connected_ = connect(handle_, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
  }
  ~DaemonLine() { close(handle_); }
  DaemonLine(const DaemonLine&) = delete;
  DaemonLine& operator=(const DaemonLine&) = delete;

  bool Connected() const { return connected_; }
  /// What comes within two seconds, up to `lines` lines.
  std::string Ask(const std::string& line, int lines = 1) const {
    const std::string question = line + "\n";
    if (send(handle_, question.data(), question.size(), MSG_NOSIGNAL) < 0) return {};
    std::string answer;
    pollfd wanted{handle_, POLLIN, 0};
    while (std::count(answer.begin(), answer.end(), '\n') < lines && poll(&wanted, 1, 2000) > 0) {
      std::array<char, 1024> bytes{};
      const ssize_t count = recv(handle_, bytes.data(), bytes.size(), 0);
      if (count <= 0) break;
      answer.append(bytes.data(), static_cast<std::size_t>(count));
    }
    return answer;
  }
  double Deg() const { return std::stod(Ask("p", 2)); }

 private:
  int handle_;
  bool connected_ = false;
};

/// hamlib's daemon with its dummy rotator: 6 degrees a second, -180 to 450.
class Rotctld {
 public:
  explicit Rotctld(int port = FreePort())
      : Port(port), process_({"rotctld", "-m", "1", "-T", "127.0.0.1", "-t", std::to_string(port)}) {
    const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!DaemonLine(Port).Connected()) {
      if (std::chrono::steady_clock::now() > until) throw std::runtime_error("rotctld does not start");
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
  }
  std::string Address() const { return "127.0.0.1:" + std::to_string(Port); }
  void Signal(int number) const { process_.Signal(number); }
  void Kill() { process_.Kill(); }

  const int Port;

 private:
  ChildProcess process_;
};

}  // namespace lobegraph::test
