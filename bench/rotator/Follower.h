#pragma once

#include <atomic>
#include <mutex>
#include <optional>
#include <thread>

#include "bench/rotator/DaemonServer.h"

namespace lobegraph {

/// Where another daemon says that its antenna is: asked many times a second, and carried on in between.
class Follower {
 public:
  /// @throws std::runtime_error when nobody answers there
  explicit Follower(const HostAndPort& place);
  ~Follower();
  Follower(const Follower&) = delete;
  Follower& operator=(const Follower&) = delete;

  /// A little ahead as well: at the speed of its last answers.
  double DegAt(double monotonicS) const;

 private:
  struct Told {
    double TimeS;
    double Deg;
  };

  void Run();
  /// None when no answer came; the connection is then made anew.
  std::optional<Told> Ask();

  HostAndPort place_;
  int handle_ = -1;
  mutable std::mutex mutex_;
  Told before_{}, last_{};
  std::atomic<bool> ends_ = false;
  std::thread thread_;
};

}  // namespace lobegraph
