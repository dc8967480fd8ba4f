#include "data/formats/ModelTable.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

constexpr std::size_t kFewestPoints = 8;
constexpr double kNoGainDb = -90.0;
constexpr std::string_view kNecHeading = "RADIATION PATTERNS";
constexpr std::string_view kFarFieldHeading = "Tot dB";

/// A direction of a model: theta from the zenith, phi counter-clockwise.
struct Direction {
  double Theta = 0.0;
  double Phi = 0.0;
  double TotalDb = 0.0;
};

bool Contains(std::string_view line, std::string_view words) {
  return line.find(words) != std::string_view::npos;
}

/// The leading numbers of a line, at most five: what stands behind may be blank and would shift.
std::vector<double> LeadingNumbers(std::string_view line) {
  std::vector<double> numbers;
  for (const std::string_view word : WordsOf(line)) {
    const auto number = NumberIn(word);
    if (!number || numbers.size() == 5) break;
    numbers.push_back(*number);
  }
  return numbers;
}

/// "FREQUENCY : 1.4100E+01 MHz" and "FREQUENCY= 1.41E+01 MHZ"
std::optional<double> FrequencyIn(std::string_view line) {
  const auto words = WordsOf(line, " \t:=");
  for (std::size_t i = 0; i + 1 < words.size(); ++i)
    if (words[i] == "FREQUENCY" || words[i] == "Frequency") return NumberIn(words[i + 1]);
  return std::nullopt;
}

/// The directions of the first radiation pattern of a NEC output.
std::vector<Direction> NecDirections(const std::vector<std::string_view>& lines, std::size_t heading) {
  std::vector<Direction> directions;
  for (std::size_t i = heading + 1; i < lines.size(); ++i) {
    const auto numbers = LeadingNumbers(lines[i]);
    if (numbers.size() == 5)
      directions.push_back({numbers[0], numbers[1], numbers[4]});
    else if (!directions.empty())
      break;
  }
  return directions;
}

using Cuts = std::map<double, std::vector<TablePoint>>;

/// The longest cut; among several the one with the strongest level.
const std::vector<TablePoint>* BestOf(const Cuts& cuts) {
  const auto strength = [](const std::vector<TablePoint>& points) {
    double strongest = points.front().LevelDb;
    for (const TablePoint& point : points) strongest = std::max(strongest, point.LevelDb);
    return std::pair(points.size(), strongest);
  };
  const std::vector<TablePoint>* best = nullptr;
  for (const auto& [at, points] : cuts)
    if (best == nullptr || strength(points) > strength(*best)) best = &points;
  return best != nullptr && best->size() >= kFewestPoints ? best : nullptr;
}

std::vector<TablePoint> NecCut(const std::vector<Direction>& directions) {
  Cuts azimuth;
  Cuts elevation;
  for (const Direction& direction : directions) {
    azimuth[direction.Theta].push_back({-direction.Phi, direction.TotalDb});
    elevation[direction.Phi].push_back({direction.Theta, direction.TotalDb});
  }
  const auto* best = BestOf(azimuth);
  if (best == nullptr) best = BestOf(elevation);
  return best == nullptr ? std::vector<TablePoint>() : *best;
}

/// Rows "Deg V H Tot ..." up to a blank line; an elevation angle counts from the horizon up.
std::vector<TablePoint> FarFieldCut(const std::vector<std::string_view>& lines, std::size_t heading,
                                    bool azimuth) {
  std::vector<TablePoint> points;
  for (std::size_t i = heading + 1; i < lines.size(); ++i) {
    const auto numbers = LeadingNumbers(lines[i]);
    if (numbers.size() < 4) break;
    points.push_back({azimuth ? -numbers[0] : 90.0 - numbers[0], numbers[3]});
  }
  return points;
}

}  // namespace

PatternTable ReadModelTable(std::string_view text) {
  PatternTable table;
  const auto lines = LinesOf(text);
  bool azimuth = true;
  for (std::size_t i = 0; i < lines.size() && table.Points.empty(); ++i) {
    if (const auto frequency = FrequencyIn(lines[i])) table.FrequencyMHz = frequency;
    if (Contains(lines[i], "Elevation Pattern")) azimuth = false;
    if (Contains(lines[i], kNecHeading)) table.Points = NecCut(NecDirections(lines, i));
    if (Contains(lines[i], kFarFieldHeading)) table.Points = FarFieldCut(lines, i, azimuth);
  }
  if (table.Points.size() < kFewestPoints) throw RunTimeError(fault::kTypeMismatch, "no radiation pattern");
  for (const TablePoint& point : table.Points)
    table.GainDbi = std::max(table.GainDbi.value_or(-1e9), point.LevelDb);
  for (TablePoint& point : table.Points)
    if (point.LevelDb < kNoGainDb) point.LevelDb = *table.GainDbi + kFaintestDb;
  return table;
}

bool LooksLikeModelTable(std::string_view bytes) {
  return Contains(bytes, kNecHeading) || Contains(bytes, kFarFieldHeading);
}

}  // namespace lobegraph
