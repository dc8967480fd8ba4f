#include "app/run/RunHints.h"

namespace lobegraph {
namespace {
constexpr int kReadingsPerTurn = 360;
constexpr int kSecondsPerMinute = 60;
}  // namespace

std::string TimeLeft(int readingsLeft, int rotationSeconds) {
  const int seconds = (readingsLeft * rotationSeconds + kReadingsPerTurn - 1) / kReadingsPerTurn;
  const std::string rest = std::to_string(seconds % kSecondsPerMinute);
  return std::to_string(seconds / kSecondsPerMinute) + ":" + (rest.size() < 2 ? "0" : "") + rest;
}

std::string StartHint(bool autoStart, bool triggered, bool pulsesCome, int rotationSeconds) {
  if (autoStart) return "Waiting for a signal. Halt Collection ends the wait.";
  if (triggered && !pulsesCome)
    return "The trigger's port is not open: press Manual Trigger for each reading.";
  if (triggered) return "Waiting for the first trigger pulse.";
  return "Collecting: " + TimeLeft(kReadingsPerTurn, rotationSeconds) + " left.";
}

std::string ProgressHint(int reading, bool triggered, int rotationSeconds) {
  const std::string place = "Reading " + std::to_string(reading) + " of " + std::to_string(kReadingsPerTurn);
  if (triggered) return place + ", paced by the trigger.";
  return place + ", " + TimeLeft(kReadingsPerTurn - reading, rotationSeconds) + " left.";
}

std::string CalibrateHint(bool soundCard) {
  return soundCard ? "At the peak set the level to green; then untick Calibrate."
                   : "Watch the level; then untick Calibrate Input.";
}

}  // namespace lobegraph
