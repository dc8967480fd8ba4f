#pragma once

namespace lobegraph {

/// Whether the program may set the antenna in motion: off at first, and asked once a session when ticked.
class DriveConsent {
 public:
  static constexpr const char* kQuestion = "The antenna will turn. Is its way free?";

  void Tick(bool ticked) { ticked_ = ticked; }
  bool Ticked() const { return ticked_; }
  /// To be asked before the first motion; the answer holds as long as the program runs.
  bool MustAsk() const { return ticked_ && !granted_; }
  /// No takes the tick away.
  void Answer(bool yes) {
    granted_ = yes;
    ticked_ = yes;
  }
  bool Granted() const { return ticked_ && granted_; }

 private:
  bool ticked_ = false;
  bool granted_ = false;
};

}  // namespace lobegraph
