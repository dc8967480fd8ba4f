#pragma once

#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "rotator/RotatorDevice.h"

namespace lobegraph::test {

/// A device that does at once what it is told, unless a test lets a call hang or fail. May be looked at from
/// another thread.
class FakeDevice final : public RotatorDevice {
 public:
  double Deg = 12.5;

  std::vector<std::string> Calls() const {
    const std::lock_guard lock(mutex_);
    return calls_;
  }
  /// Waits until a call of that name has been made so often. @return whether it was, within 5 seconds
  bool Await(const std::string& name, int times = 1) const {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, std::chrono::seconds(5), [&] { return CountOf(name) >= times; });
  }
  int Count(const std::string& name) const {
    const std::lock_guard lock(mutex_);
    return CountOf(name);
  }
  /// The next call of that name does not return before LetGo.
  void HangIn(const std::string& name) {
    const std::lock_guard lock(mutex_);
    hangsIn_ = name;
  }
  void LetGo() {
    const std::lock_guard lock(mutex_);
    hangsIn_.clear();
    changed_.notify_all();
  }
  void FailIn(const std::string& name, std::optional<RotatorFault> fault) {
    const std::lock_guard lock(mutex_);
    failsIn_ = name;
    fault_ = fault;
  }

  std::vector<RotatorModel> Models() override {
    Called("models");
    return {{1, RotatorModel::Reached::Directly, "Hamlib", "Dummy"},
            {603, RotatorModel::Reached::Serial, "Yaesu", "GS-232B"}};
  }
  RotatorAbilities Open(const RotatorChoice& choice) override {
    Called("open " + std::to_string(choice.Model));
    return {true, true, true, true, true, -180, 450};
  }
  void Close() override { Called("close"); }
  double Position() override {
    Called("position");
    return Deg;
  }
  void GoTo(double deg) override { Called("goto " + std::to_string(static_cast<int>(deg))); }
  void Turn(TurnSense sense) override { Called(sense == TurnSense::Left ? "left" : "right"); }
  void Stop() override { Called("stop"); }
  void Park() override { Called("park"); }

 private:
  int CountOf(const std::string& name) const {
    int count = 0;
    for (const std::string& call : calls_) count += call == name ? 1 : 0;
    return count;
  }
  void Called(const std::string& name) {
    std::unique_lock lock(mutex_);
    calls_.push_back(name);
    changed_.notify_all();
    changed_.wait(lock, [&] { return hangsIn_ != name; });
    if (fault_ && failsIn_ == name) throw DeviceFault(*fault_);
  }

  mutable std::mutex mutex_;
  mutable std::condition_variable changed_;
  std::vector<std::string> calls_;
  std::string hangsIn_, failsIn_;
  std::optional<RotatorFault> fault_;
};

}  // namespace lobegraph::test
