#include <cmath>

#include "data/calibration/CalibrationText.h"
#include "fuzz/Targets.h"
#include "processing/calibration/CalibratedLevel.h"

namespace lobegraph::fuzz {
namespace {

void TryTable(const CalibrationTable& table) {
  double before = -HUGE_VAL;
  for (double heardDb = -1100.0; heardDb < 1100.0; heardDb += 7.3) {
    const double trueDb = table.TrueDb(heardDb);
    Promise(std::isfinite(trueDb), "a calibrated level is a finite number");
    Promise(trueDb >= before - 1e-6, "a louder level is never the weaker signal");
    before = trueDb;
  }
  for (const CalibrationPoint& point : table.Points())
    Promise(std::abs(table.TrueDb(point.HeardDb) - point.TrueDb) < 1e-6, "the curve goes through its points");
  Promise(CalibratedLevel(table, 500.0F) >= (table.Empty() ? 500.0F : 1.0F), "no level below 1");
}

}  // namespace

void TryCalibration(std::string_view input) {
  const CalibrationFile file = ReadCalibration(input);
  if (!file.Outcome.Table) return Promise(!file.Outcome.Refusal.empty(), "a refused calibration says why");
  TryTable(*file.Outcome.Table);
  const CalibrationFile again = ReadCalibration(CalibrationText(*file.Outcome.Table, file.Notes));
  Promise(again.Notes == file.Notes, "what is noted is read back");
}

}  // namespace lobegraph::fuzz
