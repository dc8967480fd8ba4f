#include "data/calibration/CalibrationTable.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "data/base/Numbers.h"

namespace lobegraph {
namespace {

using Points = std::vector<CalibrationPoint>;

double Width(const Points& points, std::size_t i) { return points[i + 1].HeardDb - points[i].HeardDb; }

double Secant(const Points& points, std::size_t i) {
  return (points[i + 1].TrueDb - points[i].TrueDb) / Width(points, i);
}

/// Slope at an inner point: the harmonic mean of the secants beside it, weighted by the widths.
double InnerSlope(const Points& points, std::size_t i) {
  const double before = Secant(points, i - 1);
  const double after = Secant(points, i);
  if (before == 0.0 || after == 0.0) return 0.0;
  const double weightBefore = 2.0 * Width(points, i) + Width(points, i - 1);
  const double weightAfter = Width(points, i) + 2.0 * Width(points, i - 1);
  return (weightBefore + weightAfter) / (weightBefore / before + weightAfter / after);
}

/// Slope at an end from three points, held so that the curve keeps rising.
double EndSlope(double width, double nextWidth, double secant, double nextSecant) {
  const double slope = ((2.0 * width + nextWidth) * secant - width * nextSecant) / (width + nextWidth);
  return std::clamp(slope, 0.0, 3.0 * secant);
}

std::vector<double> SlopesOf(const Points& points) {
  const std::size_t count = points.size();
  if (count < 2) return std::vector<double>(count, 1.0);
  if (count == 2) return std::vector<double>(2, Secant(points, 0));
  std::vector<double> slopes(count);
  for (std::size_t i = 1; i + 1 < count; ++i) slopes[i] = InnerSlope(points, i);
  slopes.front() = EndSlope(Width(points, 0), Width(points, 1), Secant(points, 0), Secant(points, 1));
  const std::size_t last = count - 2;
  slopes.back() =
      EndSlope(Width(points, last), Width(points, last - 1), Secant(points, last), Secant(points, last - 1));
  return slopes;
}

std::string Db(double value) { return FixedText(value, 1) + " dB"; }

}  // namespace

CalibrationTable::CalibrationTable(std::vector<CalibrationPoint> points)
    : points_(std::move(points)), slopes_(SlopesOf(points_)) {}

double CalibrationTable::TrueDb(double heardDb) const {
  if (points_.empty()) return heardDb;
  const auto above = std::ranges::upper_bound(points_, heardDb, {}, &CalibrationPoint::HeardDb);
  if (above == points_.begin()) return heardDb + points_.front().TrueDb - points_.front().HeardDb;
  if (above == points_.end()) return heardDb + points_.back().TrueDb - points_.back().HeardDb;
  const auto i = static_cast<std::size_t>(above - points_.begin()) - 1;
  const double width = Width(points_, i);
  const double t = (heardDb - points_[i].HeardDb) / width;
  const double u = 1.0 - t;
  return points_[i].TrueDb * (1.0 + 2.0 * t) * u * u + slopes_[i] * width * t * u * u +
         points_[i + 1].TrueDb * t * t * (3.0 - 2.0 * t) - slopes_[i + 1] * width * t * t * u;
}

CalibrationOutcome CalibrationOutcome::Of(std::vector<CalibrationPoint> points) {
  std::ranges::sort(points, {}, &CalibrationPoint::HeardDb);
  for (std::size_t i = 1; i < points.size(); ++i) {
    const CalibrationPoint& weaker = points[i - 1];
    const CalibrationPoint& louder = points[i];
    if (louder.HeardDb == weaker.HeardDb)
      return {std::nullopt, Db(louder.HeardDb) + " is heard twice, for " + Db(weaker.TrueDb) + " and for " +
                                Db(louder.TrueDb) + ": the receiver does not tell these signals apart."};
    if (louder.TrueDb < weaker.TrueDb)
      return {std::nullopt, Db(louder.HeardDb) + " is louder than " + Db(weaker.HeardDb) +
                                " but stands for the weaker signal (" + Db(louder.TrueDb) + " and " +
                                Db(weaker.TrueDb) + "): take these points again."};
  }
  return {CalibrationTable(std::move(points)), {}};
}

}  // namespace lobegraph
