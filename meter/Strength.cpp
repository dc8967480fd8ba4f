#include "meter/Strength.h"

#include "data/base/Numbers.h"
#include "data/calibration/CalibrationText.h"

namespace lobegraph {

std::optional<double> ParseStrength(std::string_view answer) { return SensibleDb(answer); }

std::string PublishedText(double trueDb, double referenceDb) {
  return FixedText(trueDb - referenceDb + kStrongestDbm, 2);
}

}  // namespace lobegraph
