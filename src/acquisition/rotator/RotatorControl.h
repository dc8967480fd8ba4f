#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "acquisition/rotator/DriveConsent.h"
#include "acquisition/rotator/RotatorLink.h"
#include "acquisition/rotator/RotatorWatchdog.h"

namespace lobegraph {

/// What a window or a line of text shows of a rotator.
struct RotatorState {
  enum class Phase { Off, Connecting, Lost, Stands, Moves, Driven, Stopping };

  Phase Is = Phase::Off;
  std::optional<double> BearingDeg;  ///< the last one told, however old
  bool Fresh = false;                ///< told within the last 3 seconds
  std::string Words;                 ///< one sentence: what it does, or what went wrong and what to do
  bool Trouble = false;              ///< Words tell of something that went wrong
};

/// A rotator as its user has it: what may be ordered, what is refused and why, and a watchdog over all that
/// moves. Times are seconds of the monotonic clock.
class RotatorControl {
 public:
  explicit RotatorControl(RotatorPipe& pipe) : link_(pipe) {}

  void Connect(const RotatorChoice& choice, double nowS, int pollMs = RotatorLink::kPollMs);
  /// What was set in motion is stopped. Never waits.
  void Disconnect();
  /// To be called four times a second at least, whatever else the program does.
  void Poll(double nowS);

  DriveConsent& Consent() { return consent_; }

  /// @return why it was not ordered; empty when it was
  /// @param deg clockwise from north; counted into the rotator's range, the nearest way
  std::string GoTo(double deg);
  /// @param deg as the rotator counts: 370 is ten degrees into its overlap
  std::string GoToExactly(double deg);
  std::string Turn(TurnSense sense);
  std::string Park();
  /// At once, whatever is going on; needs no consent.
  void Stop();

  bool Wanted() const { return link_.Wanted(); }
  bool Open() const { return link_.Open(); }
  const RotatorAbilities& Can() const { return link_.Can(); }
  /// The last position told; none before the first.
  const std::optional<RotatorPosition>& Position() const { return position_; }
  /// The positions since the last call, oldest first; at most kMostKept.
  std::vector<RotatorPosition> TakePositions() { return std::exchange(positions_, {}); }
  /// An order is on that has neither arrived nor been stopped.
  bool Driving() const { return watchdog_.Driving(); }
  /// The antenna moves, whoever set it in motion, or may still move after a stop.
  bool Moving() const;
  bool AnswersFresh() const;
  /// What went wrong since the last order to move; empty when nothing did.
  const std::string& Trouble() const { return trouble_; }

  RotatorState State() const;

 private:
  static constexpr std::size_t kMostKept = 4096;

  std::string WhyNot(bool able) const;
  std::string Begin(const DriveOrder& order, bool sent);
  void Take(const RotatorPosition& position);
  void LookAfter();
  void StopFor(const std::string& trouble);
  std::string Words() const;

  RotatorLink link_;
  RotatorWatchdog watchdog_;
  DriveConsent consent_;
  RotatorChoice choice_;
  double nowS_ = 0;
  double heardS_ = 0;
  std::optional<double> movedS_;     ///< the last change of the bearing
  std::optional<double> stopOwedS_;  ///< since when a stop has not been carried out
  std::optional<RotatorPosition> position_;
  std::vector<RotatorPosition> positions_;
  std::string trouble_;
};

}  // namespace lobegraph
