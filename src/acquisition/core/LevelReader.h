#pragma once

namespace lobegraph {

/// One sample of the chosen input.
class LevelReader {
 public:
  virtual ~LevelReader() = default;
  /// Linear level: 1 to the peak input level (sound card), 1 to 1000 (meters).
  virtual float ReadInputLevel() = 0;
};

/// A meter whose value is fetched at each sample: the external meter program.
class MeterPoll {
 public:
  virtual ~MeterPoll() = default;
  virtual void Poll() = 0;
};

}  // namespace lobegraph
