#include "data/table/PatternTable.h"

#include <algorithm>
#include <cmath>

#include "data/base/Numbers.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

constexpr double kTurn = 360.0;
constexpr double kHalfTurnGap = 170.0;
constexpr double kSameAngle = 1e-6;
constexpr double kEvenness = 1e-3;
constexpr std::size_t kFewestReadings = 60;
constexpr std::size_t kMostReadings = 360;
constexpr double kPeakLevel = 1000.0;
constexpr std::size_t kMostPoints = 1'000'000;
/// Degrees or dB; sums of them stay numbers.
constexpr double kMostOfAnything = 1e15;

double OnCircle(double angleDeg) {
  const double rest = std::fmod(angleDeg, kTurn);
  return rest < 0.0 ? rest + kTurn : rest;
}

/// By angle from 0 up to 360, one point an angle.
std::vector<TablePoint> Merged(std::vector<TablePoint> sorted) {
  for (TablePoint& point : sorted) {
    point.AngleDeg = OnCircle(point.AngleDeg);
    if (kTurn - point.AngleDeg < kSameAngle) point.AngleDeg = 0.0;
  }
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const TablePoint& a, const TablePoint& b) { return a.AngleDeg < b.AngleDeg; });
  std::vector<TablePoint> merged;
  for (std::size_t i = 0; i < sorted.size();) {
    double sum = 0.0;
    double count = 0.0;
    std::size_t next = i;
    for (; next < sorted.size() && sorted[next].AngleDeg - sorted[i].AngleDeg < kSameAngle; ++next) {
      sum += sorted[next].LevelDb * sorted[next].Count;
      count += sorted[next].Count;
    }
    merged.push_back({sorted[i].AngleDeg, sum / count, count});
    i = next;
  }
  return merged;
}

/// The same with 0 dB at the strongest.
std::vector<TablePoint> Ordered(const PatternTable& table) {
  RequirePoints(table);
  std::vector<TablePoint> merged = Merged(table.Points);
  double strongest = merged.front().LevelDb;
  for (const TablePoint& point : merged) strongest = std::max(strongest, point.LevelDb);
  for (TablePoint& point : merged) point.LevelDb = std::max(kFaintestDb, point.LevelDb - strongest);
  return merged;
}

/// Degrees from a point to the next one on the circle.
double GapAfter(const std::vector<TablePoint>& points, std::size_t index) {
  const double next = index + 1 < points.size() ? points[index + 1].AngleDeg : points[0].AngleDeg + kTurn;
  return next - points[index].AngleDeg;
}

double LevelAt(const std::vector<TablePoint>& points, double angleDeg) {
  const auto after =
      std::upper_bound(points.begin(), points.end(), angleDeg + kSameAngle,
                       [](double angle, const TablePoint& point) { return angle < point.AngleDeg; });
  const auto passed = static_cast<std::size_t>(after - points.begin());
  const std::size_t index = passed == 0 ? points.size() - 1 : passed - 1;
  const TablePoint& before = points[index];
  const double beyond = OnCircle(angleDeg - before.AngleDeg + kSameAngle) - kSameAngle;
  if (beyond <= kSameAngle) return before.LevelDb;
  const double share = beyond / GapAfter(points, index);
  return before.LevelDb + share * (points[(index + 1) % points.size()].LevelDb - before.LevelDb);
}

bool Even(const std::vector<TablePoint>& points) {
  const double step = kTurn / static_cast<double>(points.size());
  for (std::size_t i = 0; i < points.size(); ++i)
    if (std::abs(GapAfter(points, i) - step) > kEvenness * step) return false;
  return points.size() >= kFewestReadings && points.size() <= kMostReadings;
}

void Put(ReadingsRecord& record, const std::vector<double>& levelsDb) {
  record.NumReadings = static_cast<std::int16_t>(levelsDb.size() - 1);
  record.ReadingCount = record.NumReadings;
  record.ReadingsPlotted = static_cast<std::int16_t>(levelsDb.size());
  for (std::size_t i = 0; i < levelsDb.size(); ++i) {
    record.Readings(static_cast<int>(i)) =
        static_cast<float>(kPeakLevel * std::pow(10.0, levelsDb[i] / 20.0));
    if (levelsDb[i] == 0.0) record.PeakIndex = static_cast<std::int16_t>(i);
  }
}

/// The largest gap when it leaves no more than about half a turn.
std::optional<std::size_t> HalfTurnGap(const std::vector<TablePoint>& points) {
  for (std::size_t i = 0; i < points.size() && points.size() > 1; ++i)
    if (GapAfter(points, i) >= kHalfTurnGap) return i;
  return std::nullopt;
}

void PutHalfTurn(ReadingsRecord& record, const std::vector<TablePoint>& points, std::size_t gap) {
  const double start = points[(gap + 1) % points.size()].AngleDeg;
  const double span = kTurn - GapAfter(points, gap);
  std::vector<double> levels;
  for (double offset = 0.0; offset < 180.0; offset += 1.0)
    levels.push_back(LevelAt(points, OnCircle(start + std::min(offset, span))));
  record.Plot180 = true;
  Put(record, levels);
}

}  // namespace

void AddPoint(std::vector<TablePoint>& points, const TablePoint& point) {
  const bool sound =
      std::abs(point.AngleDeg) <= kMostOfAnything && std::abs(point.LevelDb) <= kMostOfAnything;
  if (!sound) throw RunTimeError(fault::kTypeMismatch, "no direction and level");
  if (points.size() == 2 * kMostPoints) {
    points = Merged(std::move(points));
    if (points.size() > kMostPoints)
      throw RunTimeError(fault::kTypeMismatch, "more than a million directions");
  }
  points.push_back(point);
}

void RequirePoints(const PatternTable& table) {
  if (table.Points.empty()) throw RunTimeError(fault::kTypeMismatch, "no pattern found");
}

std::array<double, 360> WholeDegrees(const PatternTable& table) {
  const auto points = Ordered(table);
  std::array<double, 360> levels{};
  for (std::size_t degrees = 0; degrees < levels.size(); ++degrees)
    levels[degrees] = LevelAt(points, static_cast<double>(degrees));
  return levels;
}

void TakeUpTable(const PatternTable& table, ReadingsRecord& record) {
  const auto points = Ordered(table);
  record.Description = table.Name;
  record.CollectedBy = table.CollectedBy;
  record.CollectedDate = table.CollectedDate;
  record.PolarizationHorizontal = table.Horizontal.value_or(true);
  if (const auto gap = HalfTurnGap(points)) return PutHalfTurn(record, points, *gap);
  const bool even = Even(points) && std::abs(points[0].AngleDeg - std::round(points[0].AngleDeg)) < kEvenness;
  std::vector<double> levels;
  if (even) {
    record.Rotate = static_cast<float>(std::round(points[0].AngleDeg));
    for (const TablePoint& point : points) levels.push_back(point.LevelDb);
  } else {
    const auto whole = WholeDegrees(table);
    levels.assign(whole.begin(), whole.end());
  }
  Put(record, levels);
}

std::vector<std::string_view> WordsOf(std::string_view line, std::string_view separators) {
  std::vector<std::string_view> words;
  for (std::size_t begin = line.find_first_not_of(separators); begin != std::string_view::npos;) {
    const std::size_t end = std::min(line.find_first_of(separators, begin), line.size());
    words.push_back(line.substr(begin, end - begin));
    begin = line.find_first_not_of(separators, end);
  }
  return words;
}

std::optional<double> NumberIn(std::string_view text) {
  std::string point(Trimmed(text));
  std::replace(point.begin(), point.end(), ',', '.');
  try {
    const ScannedNumber number = ScanNumber(point);
    if (number.Length == 0 || number.Length != point.size()) return std::nullopt;
    return number.Value;
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(" \t\r");
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

}  // namespace lobegraph
