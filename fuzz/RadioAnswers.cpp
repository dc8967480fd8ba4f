#include <cmath>

#include "data/base/Numbers.h"
#include "data/calibration/CalibrationText.h"
#include "fuzz/Targets.h"
#include "meter/Strength.h"

namespace lobegraph::fuzz {

/// The first line is the daemon's answer, the others are a calibration.
void TryRadioAnswers(std::string_view input) {
  const std::size_t end = std::min(input.find('\n'), input.size());
  const std::optional<double> reported = ParseStrength(input.substr(0, end));
  Promise(!reported || std::isfinite(*reported), "a strength is a finite number");
  const CalibrationOutcome calibration =
      ReadCalibration(input.substr(std::min(end + 1, input.size()))).Outcome;
  if (!calibration.Table) return Promise(!calibration.Refusal.empty(), "a refused calibration says why");
  const double trueDb = calibration.Table->TrueDb(reported.value_or(0));
  Promise(std::isfinite(trueDb), "a calibrated strength is a finite number");
  Promise(std::isfinite(WholeNumberText(PublishedText(trueDb, 0))), "a number is published");
}

}  // namespace lobegraph::fuzz
