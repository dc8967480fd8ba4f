#include "processing/Directivity.h"

#include <cmath>
#include <vector>

#include "data/base/Numbers.h"
#include "data/base/Rounding.h"
#include "processing/Decibels.h"

namespace lobegraph {
namespace {

// Deliberate: six digits of pi, as in every figure that this one is compared with.
constexpr double kPi = 3.141593;
constexpr double kTwoPi = 6.283186;

int StrongestReading(const ReadingsRecord& record, int first, int last) {
  int strongest = first;
  for (int i = first; i <= last; ++i)
    if (record.Readings(i) > record.Readings(strongest)) strongest = i;
  return strongest;
}

/// The integrand at equal steps from the strongest reading, forward and round the end of the plotted range.
std::vector<double> Integrand(const ReadingsRecord& record, int points) {
  const int first = record.TrimFront;
  const int last = record.LastPlotted();
  const int strongest = StrongestReading(record, first, last);
  const double peak = record.Readings(strongest);
  if (peak == 0.0) throw RunTimeError(fault::kOverflow);
  std::vector<double> values;
  for (int j = 1, i = strongest; j <= points; ++j, i = i == last ? first : i + 1) {
    const double ratio = record.Readings(i) / peak;
    values.push_back(ratio * ratio * std::abs(std::sin(2.0 * kPi * j / points)));
  }
  return values;
}

/// Composite Simpson rule over an odd number of points.
double Simpson(const std::vector<double>& values, double step) {
  double sum = values.front() + values.back();
  for (std::size_t i = 1; i + 1 < values.size(); ++i) sum += (i % 2 == 1 ? 4.0 : 2.0) * values[i];
  return step / 3.0 * sum;
}

double HorizontalCorrection(int elements) {
  switch (elements) {
    case 2:
      return 3.0;
    case 4:
      return 1.46;
    case 5:
      return 1.14;
    case 8:
      return 0.6;
    default:
      return 1.76;
  }
}

}  // namespace

double DirectivityByIntegration(const ReadingsRecord& record) {
  const int plotted = record.ReadingsPlotted;
  const int points = plotted % 2 == 0 ? plotted - 1 : plotted;
  const double integral = Simpson(Integrand(record, points), kTwoPi / points);
  if (integral == 0.0) throw RunTimeError(fault::kDivisionByZero);
  return 10.0 * Log10(4.0 / integral);
}

std::optional<double> ElementCorrection(std::string_view elements, bool horizontal) {
  if (elements.find('>') != std::string_view::npos) return 0.0;
  const int count = ToInt32(LeadingNumber(elements));
  if (count < 2) return std::nullopt;
  const double correction = HorizontalCorrection(count);
  return horizontal ? correction : -correction;
}

std::optional<double> IntegratedGain(const ReadingsRecord& record) {
  const double directivity = DirectivityByIntegration(record);
  const auto correction = ElementCorrection(record.Elements, record.PolarizationHorizontal);
  if (!correction) return std::nullopt;
  return directivity - *correction;
}

}  // namespace lobegraph
