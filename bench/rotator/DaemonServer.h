#pragma once

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "bench/rotator/Daemon.h"

namespace lobegraph {

/// A place in the network: a name or a number, and a port.
struct HostAndPort {
  std::string Host = "127.0.0.1";
  int Port = 4533;
};
/// "4533", "localhost:4533", "[::1]:4533". @throws std::invalid_argument for any other text
HostAndPort ReadHostAndPort(const std::string& text);

/// Seconds of the system's monotonic clock.
double MonotonicS();

/// An antenna on its motor, whose daemon serves any number of clients on a thread of its own.
class DaemonServer {
 public:
  /// @throws std::runtime_error when nobody may listen there
  DaemonServer(const HostAndPort& place, const MotorSettings& motor, const DaemonSettings& daemon);
  ~DaemonServer();
  DaemonServer(const DaemonServer&) = delete;
  DaemonServer& operator=(const DaemonServer&) = delete;

  double DegAt(double monotonicS);

 private:
  /// A client, what it said that is no whole line yet, and answers that are on their way.
  struct Client {
    int Handle;
    std::string Heard;
    struct Answer {
      double DueS;
      std::string Text;
    };
    std::vector<Answer> Answers;
    bool Gone = false;
  };

  void Run();
  void Await();
  void Accept();
  void Hear(Client& client);
  void Obey(Client& client, const std::string& line);
  void SendWhatIsDue(Client& client);

  std::mutex mutex_;  ///< of the motor
  Motor motor_;
  Daemon daemon_;
  int listening_;
  std::vector<Client> clients_;
  std::atomic<bool> ends_ = false;
  std::thread thread_;
};

}  // namespace lobegraph
