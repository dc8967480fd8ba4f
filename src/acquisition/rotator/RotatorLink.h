#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "acquisition/rotator/LineCutter.h"
#include "acquisition/rotator/RotatorLines.h"
#include "acquisition/rotator/RotatorPipe.h"

namespace lobegraph {

/// One rotator behind its process: opened, asked for its position, told to move and to stop. A process that
/// hangs or has gone is replaced, a port that was lost is opened again, and an antenna that was moving then
/// is stopped first. Times are seconds of the monotonic clock.
class RotatorLink {
 public:
  static constexpr double kHungS = 3;     ///< an order or a call without an answer
  static constexpr double kOpeningS = 8;  ///< what opening may take
  static constexpr double kSilentS = 1;   ///< without a position until the port is opened again
  static constexpr double kHeartbeatS = 0.25;
  static constexpr double kTryAgainS = 0.5;
  static constexpr int kPollMs = 200;  ///< between two questions for the position

  explicit RotatorLink(RotatorPipe& pipe) : pipe_(pipe) {}

  void Connect(const RotatorChoice& choice, int pollMs = kPollMs);
  /// What was set in motion is stopped. Never waits.
  void Disconnect();
  /// Carries everything on; to be called four times a second at least.
  void Poll(double nowS);

  /// False, and nothing is sent, while the rotator is not open.
  bool GoTo(double deg);
  bool Turn(TurnSense sense);
  bool Park();
  /// Is sent until it was carried out, as soon as the rotator is reached.
  void Stop();

  bool Wanted() const { return choice_.has_value(); }
  bool Open() const { return open_; }
  const RotatorAbilities& Can() const { return can_; }
  /// The positions since the last call, oldest first.
  std::vector<RotatorPosition> TakePositions() { return std::exchange(positions_, {}); }
  /// Why the rotator cannot be reached or tells no position; none while it does.
  std::optional<RotatorFault> Fault() const { return fault_; }
  /// Why an order to move was not carried out; told once.
  std::optional<RotatorFault> TakeRefusal() { return std::exchange(refusal_, {}); }
  /// A stop was ordered and is not known to be carried out.
  bool StopOwed() const { return stopOwed_; }
  /// The process stopped the antenna because it heard nothing from here; told once.
  bool TakeStoppedItself() { return std::exchange(stoppedItself_, false); }

 private:
  /// An order whose answer has not come.
  struct Sent {
    int Number;
    double TimeS;
  };
  using Pending = std::optional<Sent>;

  void StartProcess();
  void SendWhatIsDue();
  Pending SendNumbered(RotatorOrder order);
  bool SendMove(const RotatorOrder& order);
  void Send(const RotatorOrder& order);
  void Hear();
  void Take(const RotatorNews& news);
  void TakeDone(int number);
  void TakeFailed(const told::Failed& failed);
  void TakePosition(const RotatorPosition& position);
  void TakeNoPosition(RotatorFault why);
  bool Hung() const;
  void Lose(RotatorFault why);
  void CloseUntilTriedAgain(RotatorFault why);

  RotatorPipe& pipe_;
  std::optional<RotatorChoice> choice_;
  int pollMs_ = kPollMs;
  LineCutter lines_{kLongestRotatorLine};
  bool running_ = false;
  bool open_ = false;
  bool driven_ = false;  ///< told to move, and not stopped since
  bool stopOwed_ = false;
  bool stoppedItself_ = false;
  int lastNumber_ = 0;
  Pending opening_, stopping_, moving_;
  double nowS_ = 0;
  double lastSentS_ = 0;
  double lastHeardS_ = 0;
  double lastPositionS_ = 0;
  double lastStampS_ = 0;
  double tryAgainS_ = 0;  ///< nothing is opened or stopped anew before
  double waitingS_ = 0;   ///< how long the process says that its call has been on
  RotatorAbilities can_;
  std::optional<RotatorFault> fault_, refusal_;
  std::vector<RotatorPosition> positions_;
};

}  // namespace lobegraph
