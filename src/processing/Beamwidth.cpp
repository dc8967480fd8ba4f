#include "processing/Beamwidth.h"

#include <cmath>
#include <cstdlib>

#include "data/base/Numbers.h"
#include "processing/Decibels.h"

namespace lobegraph {
namespace {

bool MoreThanEight(std::string_view elements) { return elements.find('>') != std::string_view::npos; }

double HorizontalRatio(double elements) {
  if (elements == 2.0) return 2.0;
  if (elements == 4.0) return 1.4;
  if (elements == 5.0) return 1.3;
  if (elements == 8.0) return 1.15;
  return 1.5;
}

}  // namespace

float BeamwidthBetween(int indexA, int indexB, float degreesPerReading) {
  const auto apart = static_cast<float>(std::abs(indexB - indexA));
  const float beamwidth = 360.F - degreesPerReading * apart;
  return beamwidth > 180.F ? 360.F - beamwidth : beamwidth;
}

std::optional<double> ElementRatioOf(std::string_view elements, bool horizontal) {
  double ratio = 1.0;
  if (!MoreThanEight(elements)) {
    const double count = LeadingNumber(elements);
    if (count == 1.0) return std::nullopt;
    ratio = HorizontalRatio(count);
  }
  return horizontal ? ratio : 1.0 / ratio;
}

double GainFromBeamwidth(std::string_view elements, double beamwidthDeg, bool horizontal) {
  constexpr double kBeamArea = 27000.0;
  const auto ratio = ElementRatioOf(elements, horizontal);
  if (!ratio) return 10.0 * Log10(kBeamArea / (beamwidthDeg * 360.0));
  return 10.0 * Log10(kBeamArea / (beamwidthDeg * beamwidthDeg * *ratio)) + 2.15;
}

BeamFigures BeamFiguresOf(float beamwidthDeg, std::string_view elements, bool horizontal) {
  if (!(beamwidthDeg > 0.F && beamwidthDeg < 180.F)) return {};
  return {beamwidthDeg, GainFromBeamwidth(elements, beamwidthDeg, horizontal)};
}

std::string BeamwidthText(const std::optional<float>& beamwidthDeg) {
  return beamwidthDeg ? FixedText(*beamwidthDeg, 2) : "Angle";
}

std::string GainText(const std::optional<double>& gainDbi) {
  return gainDbi ? FixedText(*gainDbi, 2) + " dBi" : "Gain";
}

}  // namespace lobegraph
