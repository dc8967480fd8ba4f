#pragma once

#include <cstdint>
#include <deque>

namespace lobegraph {

/// Tells which sample had come in at which time. Blocks of sound come late by chance, never early; the least
/// delayed ones of the last seconds give the line from the clock to the count of samples, so that a late
/// block moves no boundary. Holds the two clocks (the sound card's and the program's) together over a turn of
/// any length.
class SampleClock {
 public:
  explicit SampleClock(double samplesPerSecond) : perMs_(samplesPerSecond / 1000.0) {}

  /// A block has come in. @param end count of all samples up to its end; times never go back
  void Note(std::int64_t end, std::int64_t nowMs);
  /// Count of the samples that had come in at a time, in the past or a little ahead. 0 before the first
  /// block.
  std::int64_t CountAt(std::int64_t timeMs) const;

 private:
  struct Block {
    std::int64_t TimeMs = 0;
    double StartMs = 0.0;  ///< time of sample 0 if this block was not delayed
  };
  double perMs_;
  std::deque<Block> blocks_;  ///< of the last seconds, each with a later start than those behind it
};

}  // namespace lobegraph
