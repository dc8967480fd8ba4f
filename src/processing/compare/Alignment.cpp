#include "processing/compare/Alignment.h"

#include <algorithm>
#include <cmath>

namespace lobegraph {
namespace {

constexpr int kDegrees = 360;
constexpr double kLowestDb = -40.0;
constexpr double kStrongDb = -20.0;
constexpr int kRounds = 3;  ///< of laying all turns on their mean

/// Levels that count, about their mean.
DegreeLevels Centred(const DegreeLevels& levels) {
  DegreeLevels centred{};
  double mean = 0.0;
  for (std::size_t i = 0; i < levels.size(); ++i) {
    centred[i] = std::max(levels[i], kLowestDb);
    mean += centred[i] / kDegrees;
  }
  for (double& level : centred) level -= mean;
  return centred;
}

/// Correlation with the other turn turned clockwise by each number of degrees.
DegreeLevels Correlations(const DegreeLevels& reference, const DegreeLevels& other) {
  const DegreeLevels a = Centred(reference);
  const DegreeLevels b = Centred(other);
  DegreeLevels sums{};
  for (std::size_t turn = 0; turn < sums.size(); ++turn)
    for (std::size_t i = 0; i < a.size(); ++i) sums[turn] += a[i] * b[(i + b.size() - turn) % b.size()];
  return sums;
}

double BestTurnDeg(const DegreeLevels& reference, const DegreeLevels& other) {
  const DegreeLevels sums = Correlations(reference, other);
  const auto best = static_cast<std::size_t>(std::ranges::max_element(sums) - sums.begin());
  const double before = sums[(best + sums.size() - 1) % sums.size()];
  const double after = sums[(best + 1) % sums.size()];
  const double curvature = before - 2.0 * sums[best] + after;
  const double fine = curvature < 0.0 ? (before - after) / (2.0 * curvature) : 0.0;
  const double turn = static_cast<double>(best) + std::clamp(fine, -0.5, 0.5);
  return turn > kDegrees / 2.0 ? turn - kDegrees : turn;
}

double OffsetDb(const DegreeLevels& reference, const DegreeLevels& turned) {
  double sum = 0.0;
  int count = 0;
  for (std::size_t i = 0; i < reference.size(); ++i) {
    if (reference[i] < kStrongDb || turned[i] < kStrongDb) continue;
    sum += reference[i] - turned[i];
    ++count;
  }
  return count > 0 ? sum / count : 0.0;
}

DegreeLevels MeanOf(std::span<const DegreeLevels> turns) {
  DegreeLevels mean{};
  for (const DegreeLevels& turn : turns)
    for (std::size_t i = 0; i < mean.size(); ++i) mean[i] += turn[i] / static_cast<double>(turns.size());
  const double strongest = std::ranges::max(mean);
  for (double& level : mean) level -= strongest;
  return mean;
}

DegreeLevels DeviationOf(std::span<const DegreeLevels> turns) {
  DegreeLevels deviation{};
  const auto count = static_cast<double>(turns.size());
  if (turns.size() < 2) return deviation;
  for (std::size_t i = 0; i < deviation.size(); ++i) {
    double mean = 0.0;
    for (const DegreeLevels& turn : turns) mean += turn[i] / count;
    double squares = 0.0;
    for (const DegreeLevels& turn : turns) squares += (turn[i] - mean) * (turn[i] - mean);
    deviation[i] = std::sqrt(squares / (count - 1.0));
  }
  return deviation;
}

}  // namespace

Alignment AlignmentOf(const DegreeLevels& reference, const DegreeLevels& other) {
  Alignment alignment;
  alignment.TurnDeg = BestTurnDeg(reference, other);
  alignment.OffsetDb = OffsetDb(reference, Turned(other, alignment.TurnDeg));
  return alignment;
}

DegreeLevels Aligned(const DegreeLevels& levels, const Alignment& alignment) {
  DegreeLevels aligned = Turned(levels, alignment.TurnDeg);
  for (double& level : aligned) level += alignment.OffsetDb;
  return aligned;
}

RepeatedTurns Repeated(std::span<const DegreeLevels> turns) {
  RepeatedTurns repeated;
  repeated.MeanDb = turns.front();
  std::vector<DegreeLevels> aligned;
  for (int round = 0; round < kRounds; ++round) {
    repeated.Alignments.clear();
    aligned.clear();
    for (const DegreeLevels& turn : turns) {
      Alignment alignment = AlignmentOf(repeated.MeanDb, turn);
      if (&turn == &turns.front()) alignment.TurnDeg = 0.0;
      repeated.Alignments.push_back(alignment);
      aligned.push_back(Aligned(turn, alignment));
    }
    repeated.MeanDb = MeanOf(aligned);
  }
  repeated.DeviationDb = DeviationOf(aligned);
  return repeated;
}

}  // namespace lobegraph
