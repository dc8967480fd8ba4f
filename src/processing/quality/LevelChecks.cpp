#include "processing/quality/LevelChecks.h"

#include <algorithm>
#include <cmath>

#include "processing/quality/Indices.h"

namespace lobegraph {
namespace {

/// One sample in a thousand at the end of the scale hardly changes a level; more do.
constexpr double kFewClipped = 0.001;
constexpr double kDeepFloorDb = -30.0;
constexpr double kShallowFloorDb = -20.0;
/// Noise 10 dB below a level lifts it by 0.4 dB.
constexpr double kAboveFloorDb = 10.0;

bool MuchClipped(const ReadingDetail& detail) {
  return static_cast<double>(detail.Clipped) > kFewClipped * static_cast<double>(detail.Samples);
}

}  // namespace

QualityItem CheckClipping(const TurnReadings& turn) {
  QualityItem item{.Kind = QualityKind::Clipping};
  if (!turn.SoundKnown()) return std::move(item).Judged("not measured", Verdict::NotKnown);
  item.Arcs = ArcsWhere(turn, [&](std::size_t i) { return turn.DetailOf(i).Clipped > 0; });
  item.Number = CountOf(item.Arcs);
  if (item.Arcs.empty()) return std::move(item).Judged("nothing clipped", Verdict::Good);
  const std::string where = ArcText(item.Arcs);
  const Verdict found = std::ranges::any_of(turn.Details, MuchClipped) ? Verdict::Bad : Verdict::Doubtful;
  return std::move(item).Blamed(
      where, found, "The sound was clipped in " + where + ".",
      "Turn the receiver's audio down until the level is green at the beam, and take the turn again.");
}

std::optional<double> FloorDb(const TurnReadings& turn) {
  std::vector<double> floors;
  for (const ReadingDetail& detail : turn.Details)
    if (detail.FloorLevel && *detail.FloorLevel > 0.0F) floors.push_back(*detail.FloorLevel);
  if (floors.empty() || !(turn.Peak() > 0.0F)) return std::nullopt;
  return std::min(0.0, 20.0 * std::log10(MedianOf(floors) / double{turn.Peak()}));
}

QualityItem CheckFloor(const TurnReadings& turn) {
  QualityItem item{.Kind = QualityKind::Floor};
  item.Number = FloorDb(turn);
  if (!item.Number) return std::move(item).Judged("not measured", Verdict::NotKnown);
  item.Arcs = ArcsWhere(turn, [&](std::size_t i) {
    const auto db = turn.RelativeDb(i);
    return !db || *db < *item.Number + kAboveFloorDb;
  });
  const double floor = *item.Number;
  const std::string value =
      DbText(floor) + (item.Arcs.empty() ? "" : "; less than 10 dB above it: " + ArcText(item.Arcs));
  if (floor <= kDeepFloorDb) return std::move(item).Judged(value, Verdict::Good);
  return std::move(item).Blamed(
      value, floor <= kShallowFloorDb ? Verdict::Doubtful : Verdict::Bad,
      "The floor is only " + DbText(0.0 - floor) + " below the beam: what is weaker is noise.",
      "Use a stronger signal, or measure the tone instead of all of the sound.");
}

}  // namespace lobegraph
