#include <cmath>

#include "data/base/Numbers.h"
#include "fuzz/Targets.h"
#include "meter/Strength.h"

namespace lobegraph::fuzz {

/// The first line is the daemon's answer, the others are a calibration.
void TryRadioAnswers(std::string_view input) {
  const std::size_t end = std::min(input.find('\n'), input.size());
  const std::optional<double> reported = ParseStrength(input.substr(0, end));
  Promise(!reported || std::isfinite(*reported), "a strength is a finite number");
  try {
    const Calibration calibration = Calibration::FromText(input.substr(std::min(end + 1, input.size())));
    const double trueDb = calibration.TrueDb(reported.value_or(0));
    Promise(std::isfinite(trueDb), "a calibrated strength is a finite number");
    Promise(std::isfinite(WholeNumberText(PublishedText(trueDb, 0))), "a number is published");
  } catch (const std::runtime_error& refused) {
    Promise(*refused.what() != '\0', "a refused calibration says why");
  }
}

}  // namespace lobegraph::fuzz
