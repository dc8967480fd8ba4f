#include "processing/quality/SourceChecks.h"

#include <algorithm>
#include <cmath>

#include "processing/quality/Indices.h"
#include "processing/quality/LevelChecks.h"

namespace lobegraph {
namespace {

constexpr double kClosedDb = 0.5;
constexpr double kOpenDb = 1.5;
constexpr double kSteadyDb = 0.5;
constexpr double kDriftedDb = 2.0;
constexpr double kAboveFloorDb = 10.0;

std::string Magnitude(double db) { return DbText(std::abs(db)); }

/// Whether the readings on both sides of the seam stand well above the floor.
bool SeamIsClear(const TurnReadings& turn) {
  const auto first = turn.RelativeDb(0);
  const auto last = turn.RelativeDb(turn.Levels.size() - 1);
  const auto floor = FloorDb(turn);
  return first && last && (!floor || std::min(*first, *last) >= *floor + kAboveFloorDb);
}

/// Strongest against weakest of the reference, each the mean of some neighbours so that its noise does not
/// count.
std::optional<double> ReferenceDriftDb(const TurnReadings& turn) {
  constexpr std::size_t kSmoothed = 9;
  std::vector<double> levels;
  for (const ReadingDetail& detail : turn.Details)
    if (detail.ReferenceLevel && *detail.ReferenceLevel > 0.0F)
      levels.push_back(20.0 * std::log10(double{*detail.ReferenceLevel}));
  if (levels.size() < kSmoothed) return std::nullopt;
  std::vector<double> means;
  for (std::size_t i = 0; i + kSmoothed <= levels.size(); ++i) {
    double sum = 0.0;
    for (std::size_t k = 0; k < kSmoothed; ++k) sum += levels[i + k];
    means.push_back(sum / static_cast<double>(kSmoothed));
  }
  const auto [weakest, strongest] = std::ranges::minmax(means);
  return strongest - weakest;
}

}  // namespace

/// The last reading stands one step before the first: carried on by the mean slope on both sides of the seam.
std::optional<double> ClosureDb(const TurnReadings& turn) {
  const std::size_t count = turn.Levels.size();
  if (!turn.WholeTurn || count < 4) return std::nullopt;
  const auto first = turn.RelativeDb(0);
  const auto second = turn.RelativeDb(1);
  const auto last = turn.RelativeDb(count - 1);
  const auto beforeLast = turn.RelativeDb(count - 2);
  if (!first || !second || !last || !beforeLast) return std::nullopt;
  return *last + ((*last - *beforeLast) + (*second - *first)) / 2.0 - *first;
}

QualityItem CheckClosure(const TurnReadings& turn) {
  QualityItem item{.Kind = QualityKind::Closure};
  item.Number = ClosureDb(turn);
  if (!item.Number) return std::move(item).Judged("not a whole turn", Verdict::NotKnown);
  const double closure = *item.Number;
  const std::string value = DbText(closure);
  if (std::abs(closure) <= kClosedDb) return std::move(item).Judged(value, Verdict::Good);
  if (!SeamIsClear(turn)) return std::move(item).Judged(value + ", at the floor", Verdict::NotKnown);
  return std::move(item).Blamed(
      value, std::abs(closure) <= kOpenDb ? Verdict::Doubtful : Verdict::Bad,
      "The turn does not close: its end is " + Magnitude(closure) +
          (closure < 0.0 ? " weaker" : " stronger") + " than its start.",
      "Set the rotation time to that of the rotator, or wait for a steadier source.");
}

QualityItem CheckDrift(const TurnReadings& turn) {
  QualityItem item{.Kind = QualityKind::Drift};
  const auto reference = ReferenceDriftDb(turn);
  item.Number = reference ? reference : turn.OverlapDb;
  if (!item.Number) return std::move(item).Judged("not measured", Verdict::NotKnown);
  const double drift = std::abs(*item.Number);
  const std::string value =
      DbText(drift) + (reference ? " by the reference" : " where it was measured twice");
  if (drift <= kSteadyDb) return std::move(item).Judged(value, Verdict::Good);
  if (reference && turn.Quotient) return std::move(item).Judged(value + ", taken out", Verdict::Good);
  return std::move(item).Blamed(value, drift <= kDriftedDb ? Verdict::Doubtful : Verdict::Bad,
                                "The source moved by " + DbText(drift) + ".",
                                "Wait for a steadier source, or measure against a fixed antenna.");
}

}  // namespace lobegraph
