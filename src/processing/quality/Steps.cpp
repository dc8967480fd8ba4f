#include <algorithm>
#include <cmath>
#include <utility>

#include "processing/quality/Indices.h"
#include "processing/quality/SourceChecks.h"

namespace lobegraph {
namespace {

constexpr double kSmallestStepDb = 1.0;
/// The pattern itself bends by less than this share of a step, beside it.
constexpr double kBendShare = 0.25;
/// A step shows in the closure as it is, but for the bends of the pattern at the seam.
constexpr double kClosureShare = 0.3;
constexpr double kClosureDb = 0.5;
constexpr double kDeepestDb = -25.0;
/// What noise bends from reading to reading hides smaller steps.
constexpr double kOverNoise = 6.0;
constexpr int kSide = 3;  ///< readings on each side from which the slope is taken

struct Step {
  int Index = 0;  ///< the reading in which it happened
  double Db = 0.0;
};

/// The jump from the reading before index to the one after it, beyond what the slopes on both sides explain.
/// The reading itself may stand anywhere between: the source changed while it was taken.
std::optional<double> JumpAt(const std::vector<double>& db, int index) {
  const int count = static_cast<int>(db.size());
  if (index - 1 - kSide < 0 || index + 1 + kSide >= count) return std::nullopt;
  const auto at = [&](int i) { return db[static_cast<std::size_t>(i)]; };
  const double before = (at(index - 1) - at(index - 1 - kSide)) / kSide;
  const double after = (at(index + 1 + kSide) - at(index + 1)) / kSide;
  const double jump = at(index + 1) - at(index - 1) - (before + after);
  double bend = std::abs(after - before);
  for (int k = 0; k < kSide - 1; ++k) {
    bend = std::max(bend, std::abs(at(index - 1 - k) - at(index - 2 - k) - before));
    bend = std::max(bend, std::abs(at(index + 2 + k) - at(index + 1 + k) - after));
  }
  const double weakest = std::min(at(index - 1), at(index + 1));
  const bool within = (at(index) - at(index - 1)) * jump >= -kBendShare * jump * jump &&
                      (at(index + 1) - at(index)) * jump >= -kBendShare * jump * jump;
  if (bend > kBendShare * std::abs(jump) || weakest < kDeepestDb || !within) return std::nullopt;
  return jump;
}

/// How much neighbours bend, in the middle: of a smooth pattern hardly at all, so it is the noise.
double NoiseOf(const std::vector<double>& db) {
  std::vector<double> bends;
  for (std::size_t i = 1; i + 1 < db.size(); ++i)
    bends.push_back(std::abs(db[i + 1] - 2.0 * db[i] + db[i - 1]));
  return bends.empty() ? 0.0 : MedianOf(std::move(bends));
}

std::vector<Step> StepsOf(const TurnReadings& turn) {
  std::vector<double> db;
  for (std::size_t i = 0; i < turn.Levels.size(); ++i) db.push_back(turn.RelativeDb(i).value_or(-300.0));
  const double smallest = std::max(kSmallestStepDb, kOverNoise * NoiseOf(db));
  std::vector<Step> steps;
  for (int i = 0; i < static_cast<int>(db.size()); ++i) {
    const auto jump = JumpAt(db, i);
    if (!jump || std::abs(*jump) < smallest) continue;
    // The same jump is seen from the readings on both sides of it: the largest view counts.
    const bool same = !steps.empty() && i - steps.back().Index <= kSide;
    if (!same)
      steps.push_back({i, *jump});
    else if (std::abs(*jump) > std::abs(steps.back().Db))
      steps.back() = {i, *jump};
  }
  return steps;
}

}  // namespace

QualityItem CheckSteps(const TurnReadings& turn) {
  QualityItem item{.Kind = QualityKind::Steps};
  const auto closure = ClosureDb(turn);
  if (!closure) return std::move(item).Judged("not a whole turn", Verdict::NotKnown);
  const std::vector<Step> steps = StepsOf(turn);
  double sum = 0.0;
  for (const Step& step : steps) sum += step.Db;
  const bool explained = std::abs(*closure - sum) <= std::max(kClosureDb, kClosureShare * std::abs(sum));
  if (std::abs(sum) < kSmallestStepDb || !explained) return std::move(item).Judged("none", Verdict::Good);
  std::vector<int> indices;
  for (const Step& step : steps) indices.push_back(step.Index);
  item.Arcs = ArcsOf(indices);
  item.Number = sum;
  const std::string where = ArcText(item.Arcs);
  return std::move(item).Blamed(DbText(sum) + " in " + where, Verdict::Bad,
                                "The source changed by " + DbText(sum) + " in " + where + ".",
                                "Take the turn again while the source keeps its power.");
}

}  // namespace lobegraph
