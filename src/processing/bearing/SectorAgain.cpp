#include "processing/bearing/SectorAgain.h"

#include <cmath>

namespace lobegraph {
namespace {

using From = DegreeReading::From;

/// The direction in which the signal stands from an antenna that points there.
int DirectionAt(const BearingPattern& pattern, double headingDeg) {
  return DegreeOf(pattern.SignalDeg - headingDeg);
}

bool ComparableAt(const BearingPattern& before, const BearingPattern& again, int degree) {
  return before.At(degree).Is == From::Samples && again.At(degree).Is == From::Samples &&
         before.At(degree).Level > 0 && again.At(degree).Level > 0;
}

std::optional<double> DifferenceDb(const BearingPattern& before, const BearingPattern& again,
                                   const BearingSector& sector) {
  double sum = 0;
  int count = 0;
  const auto compare = [&](double headingDeg) {
    const int degree = DirectionAt(before, headingDeg);
    if (!ComparableAt(before, again, degree)) return;
    sum += 20 * std::log10(static_cast<double>(again.At(degree).Level) / before.At(degree).Level);
    ++count;
  };
  for (double beside = 1; beside <= kLevellingDeg; ++beside) {
    compare(sector.FromDeg - beside);
    compare(sector.FromDeg + sector.WidthDeg() + beside);
  }
  return count == 0 ? std::nullopt : std::optional(sum / count);
}

}  // namespace

double BearingSector::WidthDeg() const {
  const double width = WithinTurn(ToDeg - FromDeg);
  return width == 0 ? kTurnDeg : width;
}

SectorTaken TakeSectorAgain(const BearingPattern& before, const BearingPattern& again,
                            const BearingSector& sector) {
  SectorTaken taken{before, 0, std::nullopt};
  if (sector.WidthDeg() < kTurnDeg) taken.DifferenceDb = DifferenceDb(before, again, sector);
  const auto factor = static_cast<float>(std::pow(10, -taken.DifferenceDb.value_or(0) / 20));
  const int degrees = static_cast<int>(std::floor(sector.WidthDeg() + 0.5)) + 1;
  for (int i = 0; i < degrees && i < kDegrees; ++i) {
    const int degree = DirectionAt(before, sector.FromDeg + i);
    if (again.At(degree).Is == From::NeverVisited) continue;
    DegreeReading reading = again.At(degree);
    reading.Level *= factor;
    reading.Lowest *= factor;
    reading.Highest *= factor;
    reading.TakenAgain = true;
    taken.Pattern.At(degree) = reading;
    ++taken.Replaced;
  }
  return taken;
}

}  // namespace lobegraph
