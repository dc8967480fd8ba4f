#include <cmath>
#include <cstring>

#include "fuzz/Targets.h"
#include "processing/bearing/BearingFigures.h"
#include "processing/bearing/BearingTake.h"
#include "processing/bearing/Locator.h"

namespace lobegraph::fuzz {
namespace {

/// A thousandth of what two bytes say, from -32 to 32.
double Number(std::string_view input, std::size_t at) {
  std::int16_t value = 0;
  std::memcpy(&value, input.data() + at, sizeof value);
  return value / 1000.0;
}

bool IsLevel(float level) { return level >= 0 && level <= 33; }

}  // namespace

void TryLocators(std::string_view input) {
  const auto centre = LocatorCentre(input);
  Promise(!centre || (std::abs(centre->LatitudeDeg) < 90 && std::abs(centre->LongitudeDeg) < 180),
          "a locator is on the globe");
  const auto bearing = ReadSignalBearing(input);
  Promise(!bearing || (bearing->Deg >= 0 && bearing->Deg < 360 && !bearing->How.empty()),
          "a bearing is in a turn");
}

/// Six bytes a step: seconds that pass, how far the told bearing goes (times 30), a level.
void TryBearings(std::string_view input) {
  BearingPlacer placer({Number("\x10\x27", 0), true, 0.02});
  double timeS = 100, deg = 0;
  for (std::size_t at = 0; at + 6 <= input.size(); at += 6) {
    timeS += std::abs(Number(input, at)) / 10;
    deg += Number(input, at + 2) * 30;
    placer.AddPosition(timeS, std::fmod(deg, 1080));
    placer.AddLevel(timeS, static_cast<float>(std::abs(Number(input, at + 4))));
    for (const int degree : placer.Advance())
      Promise(degree >= 0 && degree < kDegrees, "a degree is one of 360");
  }
  placer.Finish();
  const BearingPattern pattern = placer.Pattern();
  for (const DegreeReading& reading : pattern.Degrees) {
    Promise(IsLevel(reading.Level) && IsLevel(reading.Lowest) && IsLevel(reading.Highest),
            "levels are those heard");
    Promise(reading.HeadingDeg >= 0 && reading.HeadingDeg < 360, "a bearing is in a turn");
  }
  const auto speed = SpeedOf(placer.Take().Track);
  Promise(!speed || (speed->Lowest > 0 && speed->Lowest <= speed->Highest * 1.0001), "speeds are in order");
  const auto closure = ClosureOf(placer.Table());
  Promise(!closure || std::isfinite(closure->Db), "a closure is a number");
  const auto delay = DelayOf(placer.Take());
  Promise(!delay || std::abs(delay->Seconds) <= 5, "a delay is a short one");
}

}  // namespace lobegraph::fuzz
