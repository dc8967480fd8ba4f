#include "data/formats/CsvReadings.h"

#include <cmath>
#include <sstream>

#include "fuzz/Targets.h"

namespace lobegraph::fuzz {

void TryCsvReadings(std::string_view input) {
  std::istringstream file{std::string(input)};
  const CsvReadings readings = ReadCsv(file);
  Promise(readings.Values.size() <= CsvReadings::kMost, "at most 360 values are taken");
  Promise(readings.NotNumbers >= 0 && readings.NotNumbers <= static_cast<int>(readings.Values.size()),
          "only fields taken are counted");
  for (const float value : readings.Values) Promise(std::isfinite(value), "every value is a number");
  Promise(!CsvSummary(readings).empty(), "there is something to tell");
}

}  // namespace lobegraph::fuzz
