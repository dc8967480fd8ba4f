#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <span>
#include <thread>
#include <vector>

#include "acquisition/levels/LevelMeter.h"

namespace lobegraph {

/// A level meter on a thread of its own: the capture thread hands over what it hears and never waits for a
/// measurement, the window's thread says when readings begin and end and takes them when they are measured.
/// What is handed over is worked through in the order in which it came.
class LevelWorker {
 public:
  /// Each task runs on the caller's thread before the call returns; for tests that say when time goes on.
  enum class Thread { Own, Callers };

  LevelWorker(const LevelChoice& choice, double samplesPerSecond, double readingSeconds,
              Thread thread = Thread::Own);
  ~LevelWorker();
  LevelWorker(const LevelWorker&) = delete;
  LevelWorker& operator=(const LevelWorker&) = delete;

  /// On the capture thread.
  void Hear(std::span<const std::int16_t> interleaved, std::int64_t nowMs);
  void HearGap(std::int64_t frames, std::int64_t nowMs);

  /// On the window's thread; see LevelMeter.
  void Open(std::int64_t timeMs);
  void Close(std::int64_t timeMs);
  void CloseLast(std::int64_t timeMs);
  std::vector<MeasuredReading> Take();
  LevelStatus Status() const;
  float Level() const;

 private:
  using Task = std::function<void(LevelMeter&)>;
  void Post(Task task);
  void Work();
  void Run(const Task& task);

  LevelMeter meter_;  ///< touched by the working thread only
  const bool ownThread_;
  mutable std::mutex mutex_;  ///< guards what follows
  std::condition_variable work_;
  std::deque<Task> tasks_;
  bool ended_ = false;
  std::vector<MeasuredReading> measured_;
  LevelStatus status_;
  std::thread thread_;
};

}  // namespace lobegraph
