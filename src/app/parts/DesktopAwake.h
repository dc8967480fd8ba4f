#pragma once

namespace lobegraph {

/// Asks the desktop neither to sleep nor to lock while a turn runs: a turn takes up to 20 minutes in which
/// nobody touches the computer. Where there is no desktop to ask nothing happens.
class DesktopAwake {
 public:
  virtual ~DesktopAwake() = default;
  virtual void Begin() = 0;
  virtual void End() = 0;
};

/// Keeps the desktop, if there is one, awake as long as it lives.
class StayAwake {
 public:
  explicit StayAwake(DesktopAwake* desktop) : desktop_(desktop) {
    if (desktop_ != nullptr) desktop_->Begin();
  }
  ~StayAwake() {
    if (desktop_ != nullptr) desktop_->End();
  }
  StayAwake(const StayAwake&) = delete;
  StayAwake& operator=(const StayAwake&) = delete;

 private:
  DesktopAwake* desktop_;
};

}  // namespace lobegraph
