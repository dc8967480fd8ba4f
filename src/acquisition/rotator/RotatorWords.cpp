#include "acquisition/rotator/RotatorWords.h"

#include <cmath>

#include "data/base/Numbers.h"
#include "processing/bearing/Angles.h"

namespace lobegraph {

std::string SentenceOf(DriveAlarm alarm) {
  switch (alarm) {
    case DriveAlarm::DoesNotMove:
      return "The antenna was stopped: its bearing has not moved for 5 seconds.";
    case DriveAlarm::MovesWrongWay:
      return "The antenna was stopped: it turns the other way than it was told. Check whether left and right "
             "are "
             "exchanged at the rotator.";
    case DriveAlarm::LeavesLimits:
      return "The antenna was stopped: it left the rotator's range.";
    case DriveAlarm::NoAnswers:
      return "The antenna was stopped: the rotator has not answered for 3 seconds. If it still turns, stop "
             "it at "
             "the control box.";
    case DriveAlarm::DoesNotStop:
      break;
  }
  return "The antenna was told to stop and still turns: stop it at the control box.";
}

std::string WordsOf(const DriveOrder& order) {
  switch (order.What) {
    case DriveOrder::Kind::Left:
      return "Turns left.";
    case DriveOrder::Kind::Right:
      return "Turns right.";
    case DriveOrder::Kind::GoTo:
      return "Goes to " + FixedText(WithinTurn(std::round(order.TargetDeg)), 0) + " degrees.";
    case DriveOrder::Kind::Park:
      break;
  }
  return "Goes to its parking place.";
}

std::optional<double> InRange(double deg, const RotatorAbilities& can, double nearDeg) {
  std::optional<double> best;
  for (double candidate = WithinTurn(deg) - 3 * kTurnDeg; candidate <= can.HighestDeg;
       candidate += kTurnDeg) {
    if (candidate < can.LowestDeg) continue;
    if (!best || std::abs(candidate - nearDeg) < std::abs(*best - nearDeg)) best = candidate;
  }
  return best;
}

}  // namespace lobegraph
