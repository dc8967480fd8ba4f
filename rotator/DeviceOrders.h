#pragma once

#include <functional>
#include <optional>

#include "acquisition/rotator/RotatorLines.h"
#include "rotator/RotatorDevice.h"

namespace lobegraph {

/// Carries orders out on a device and remembers whether it was set in motion. Every call may last.
class DeviceOrders {
 public:
  using Tell = std::function<void(const RotatorNews&)>;

  /// @param clockS seconds of the monotonic clock
  DeviceOrders(RotatorDevice& device, Tell tell, std::function<double()> clockS)
      : device_(device), tell_(std::move(tell)), clockS_(std::move(clockS)) {}

  /// Done or failed is told (the end of a list after it); what an order finds is told before.
  void Obey(const RotatorOrder& order);
  /// The position with the middle of question and answer, or why there is none. Nothing while none is open.
  void AskPosition();
  /// Stops what was set in motion; a port that fails is opened anew.
  /// @return whether nothing moves any more by an order from here
  bool StopWhatMoves();

  /// A move was ordered, and no stop was carried out since.
  bool Driven() const { return driven_; }
  bool IsOpen() const { return open_; }
  /// What was opened last, to be stopped by whoever comes after.
  const std::optional<RotatorChoice>& Choice() const { return choice_; }

 private:
  void List();
  void Carry(const RotatorOrder& order);
  void Open(const RotatorChoice& choice);
  void Stop();

  RotatorDevice& device_;
  Tell tell_;
  std::function<double()> clockS_;
  std::optional<RotatorChoice> choice_;
  RotatorAbilities can_;
  bool open_ = false;
  bool driven_ = false;
};

}  // namespace lobegraph
