#include <algorithm>
#include <cmath>

#include "data/base/Numbers.h"
#include "processing/quality/SourceChecks.h"

namespace lobegraph {
namespace {

/// Below it the noise is part of what is measured as the tone.
constexpr double kLowestRatioDb = 10.0;
/// Further below the strongest ratio the receiver's AGC follows the noise instead of the tone.
constexpr double kLookedAtDb = 25.0;
constexpr double kLeastRangeDb = 6.0;
constexpr std::size_t kFewestReadings = 20;
constexpr double kOffFrom = 0.75;
constexpr double kOnUpTo = 0.5;

struct Point {
  double RatioDb = 0.0;
  double ToneDb = 0.0;
};

double Db(double ratio) { return 20.0 * std::log10(ratio); }

std::vector<Point> PointsOf(const TurnReadings& turn) {
  std::vector<Point> points;
  for (const ReadingDetail& detail : turn.Details) {
    const bool told =
        detail.ToneLevel && detail.NoiseLevel && *detail.ToneLevel > 0.0F && *detail.NoiseLevel > 0.0F;
    if (!told || detail.Clipped > 0 || detail.KeyUp || detail.NoTone || detail.ToneLeft) continue;
    points.push_back(
        {Db(double{*detail.ToneLevel} / double{*detail.NoiseLevel}), Db(double{*detail.ToneLevel})});
  }
  double strongest = kLowestRatioDb;
  for (const Point& point : points) strongest = std::max(strongest, point.RatioDb);
  const double lowest = std::max(kLowestRatioDb, strongest - kLookedAtDb);
  std::erase_if(points, [&](const Point& point) { return point.RatioDb < lowest; });
  return points;
}

/// From the fiftieth part to the forty-ninth: single readings make no range.
double RangeDb(std::vector<Point> points) {
  if (points.size() < kFewestReadings) return 0.0;
  std::ranges::sort(points, {}, &Point::RatioDb);
  const std::size_t aside = points.size() / 50;
  return points[points.size() - 1 - aside].RatioDb - points[aside].RatioDb;
}

double SlopeOf(const std::vector<Point>& points) {
  const auto count = static_cast<double>(points.size());
  double ratio = 0.0;
  double tone = 0.0;
  for (const Point& point : points) {
    ratio += point.RatioDb / count;
    tone += point.ToneDb / count;
  }
  double product = 0.0;
  double square = 0.0;
  for (const Point& point : points) {
    product += (point.RatioDb - ratio) * (point.ToneDb - tone);
    square += (point.RatioDb - ratio) * (point.RatioDb - ratio);
  }
  return product / square;
}

}  // namespace

std::optional<double> AgcSlope(const TurnReadings& turn) {
  const std::vector<Point> points = PointsOf(turn);
  if (RangeDb(points) < kLeastRangeDb) return std::nullopt;
  return SlopeOf(points);
}

QualityItem CheckAgc(const TurnReadings& turn) {
  QualityItem item{.Kind = QualityKind::Agc};
  item.Number = AgcSlope(turn);
  if (!item.Number)
    return std::move(item).Judged("cannot tell: tone over noise covers less than 6 dB", Verdict::NotKnown);
  const double slope = *item.Number;
  const std::string value = "slope " + FixedText(slope, 2);
  if (slope >= kOffFrom) return std::move(item).Judged("off (" + value + ")", Verdict::Good);
  if (slope > kOnUpTo) return std::move(item).Judged("cannot tell (" + value + ")", Verdict::NotKnown);
  if (turn.OverNoise) return std::move(item).Judged("on (" + value + "), taken out", Verdict::Good);
  return std::move(item).Blamed(
      "on (" + value + ")", Verdict::Bad,
      "The receiver's AGC was on: the beam is flattened, the lobes are too strong.",
      "Switch it off, or measure the tone over the noise, and take the turn again.");
}

}  // namespace lobegraph
