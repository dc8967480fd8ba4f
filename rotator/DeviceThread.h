#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>

#include "acquisition/rotator/UnevenIntervals.h"
#include "rotator/DeviceOrders.h"

namespace lobegraph {

/// The one thread that calls the device, so that a call that hangs holds up nobody else.
class DeviceThread {
 public:
  /// @param tell called from the thread
  DeviceThread(RotatorDevice& device, DeviceOrders::Tell tell);
  /// Waits for the call in hand.
  ~DeviceThread();
  DeviceThread(const DeviceThread&) = delete;
  DeviceThread& operator=(const DeviceThread&) = delete;

  /// In order; a stop takes the place of the moves that wait before it.
  void Give(const RotatorOrder& order);
  /// Instead of all that waits: stops what was set in motion, again and again until it was carried out.
  void StopWhatMoves();
  /// How long the call in hand has been on; 0 between two.
  double CallS() const;
  bool Driven() const;
  std::optional<RotatorChoice> Choice() const;

 private:
  void Run();
  bool DoNext(std::unique_lock<std::mutex>& lock);
  void Call(std::unique_lock<std::mutex>& lock, const std::function<void()>& call);
  std::optional<double> NextDueS() const;

  mutable std::mutex mutex_;
  std::condition_variable wake_;
  DeviceOrders orders_;
  std::deque<RotatorOrder> waiting_;
  bool stopWhatMoves_ = false;
  bool ends_ = false;
  bool driven_ = false;
  std::optional<RotatorChoice> choice_;
  std::optional<double> callSinceS_;
  double everyS_ = 0;
  double nextPositionS_ = 0;
  UnevenIntervals intervals_;
  double nextStopS_ = 0;
  std::thread thread_;
};

}  // namespace lobegraph
