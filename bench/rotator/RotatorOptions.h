#pragma once

#include <optional>

#include "bench/rotator/DaemonServer.h"

namespace CLI {
class App;
}

namespace lobegraph {

/// The rotator under the antenna that is played.
struct RotatorOptions {
  std::optional<HostAndPort> Serve;   ///< the bench turns it, and answers there
  std::optional<HostAndPort> Follow;  ///< another daemon's antenna
  MotorSettings Motor{.LowestDeg = -180, .HighestDeg = 450};
  DaemonSettings Answers;
  double SignalDeg = 0;  ///< bearing of the signal

  bool Any() const { return Serve || Follow; }
};

/// Adds --rotator and what belongs to it. @param options outlives the parsing
void AddRotatorOptions(CLI::App& app, RotatorOptions& options);

}  // namespace lobegraph
