#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "acquisition/rotator/RotatorTypes.h"

namespace lobegraph {

/// The process that talks to the rotator, as its parent sees it. No call waits.
class RotatorPipe {
 public:
  virtual ~RotatorPipe() = default;

  /// A new process; one that is there is killed first. @return false when none can be started
  virtual bool Start() = 0;
  virtual void Send(std::string_view lines) = 0;
  /// What it has told since the last call; none when there is no process or it has ended.
  virtual std::optional<std::string> Receive() = 0;
  /// Ends it at once. What the antenna does it goes on doing.
  virtual void Kill() = 0;
  /// Closes the line: the process stops what it has set in motion and ends by itself, later.
  virtual void Leave() = 0;
  /// Kills the process and starts one that only reaches the rotator, stops it and ends by itself, later.
  virtual void LeaveStopping(const RotatorChoice& choice) = 0;
};

}  // namespace lobegraph
