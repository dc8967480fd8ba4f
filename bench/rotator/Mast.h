#pragma once

#include <optional>

#include "bench/rotator/Follower.h"
#include "bench/rotator/RotatorOptions.h"

namespace lobegraph {

/// The antenna's mast, turned by the bench or by another.
class Mast {
 public:
  /// @throws std::runtime_error when its place in the network cannot be had
  explicit Mast(const RotatorOptions& options) : signalDeg_(options.SignalDeg) {
    if (options.Serve) server_.emplace(*options.Serve, options.Motor, options.Answers);
    if (options.Follow) follower_.emplace(*options.Follow);
  }

  double DegAt(double monotonicS) {
    return server_ ? server_->DegAt(monotonicS) : follower_->DegAt(monotonicS);
  }
  /// Where the signal stands from the antenna, clockwise from its boresight.
  double DirectionAt(double monotonicS) { return signalDeg_ - DegAt(monotonicS); }

 private:
  double signalDeg_;
  std::optional<DaemonServer> server_;
  std::optional<Follower> follower_;
};

}  // namespace lobegraph
