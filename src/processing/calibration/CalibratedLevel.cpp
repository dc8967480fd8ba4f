#include "processing/calibration/CalibratedLevel.h"

#include <algorithm>
#include <cmath>

namespace lobegraph {
namespace {

constexpr double kFullLevel = 1000.0;
constexpr double kMeterFullDb = 60.0;
constexpr double kLowestLevel = 1.0;

}  // namespace

double HeardDbOf(double level) { return 20.0 * std::log10(level / kFullLevel); }

double LevelOfHeardDb(double db) { return kFullLevel * std::pow(10.0, db / 20.0); }

float CalibratedLevel(const CalibrationTable& table, float level) {
  if (table.Empty() || !(level > 0.0F)) return level;
  return static_cast<float>(std::max(kLowestLevel, LevelOfHeardDb(table.TrueDb(HeardDbOf(level)))));
}

float CalibratedMeterDb(const CalibrationTable& table, float meterDb) {
  if (table.Empty()) return meterDb;
  return static_cast<float>(std::max(0.0, table.TrueDb(meterDb - kMeterFullDb) + kMeterFullDb));
}

}  // namespace lobegraph
