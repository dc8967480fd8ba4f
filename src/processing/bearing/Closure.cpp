#include <algorithm>
#include <cmath>

#include "processing/bearing/BearingFigures.h"

namespace lobegraph {
namespace {

constexpr double kCountsDownDb = 25;
constexpr int kLeastBuckets = 2;  ///< of a visit: the edge of one is no reading

double Db(float later, float before) { return 20 * std::log10(static_cast<double>(later) / before); }

/// The first visit that counts, and the last.
struct Twice {
  const DegreeVisit* First = nullptr;
  const DegreeVisit* Last = nullptr;

  explicit Twice(const std::vector<DegreeVisit>& visits) {
    for (const DegreeVisit& visit : visits) {
      if (visit.Buckets < kLeastBuckets || visit.Level() <= 0) continue;
      if (!First) First = &visit;
      Last = &visit;
    }
  }
  bool Compared() const { return First != Last; }
};

float StrongestOf(const DegreeTable& table) {
  float strongest = 0;
  for (int degree = 0; degree < kDegrees; ++degree)
    for (const DegreeVisit& visit : table.At(degree)) strongest = std::max(strongest, visit.Level());
  return strongest;
}

std::optional<Closure> ClosureAbove(const DegreeTable& table, float level) {
  Closure closure;
  for (int degree = 0; degree < kDegrees; ++degree) {
    const Twice twice(table.At(degree));
    if (!twice.Compared() || twice.First->Level() < level) continue;
    closure.Db += Db(twice.Last->Level(), twice.First->Level());
    closure.ApartS += twice.Last->TimeS() - twice.First->TimeS();
    ++closure.Degrees;
  }
  if (closure.Degrees == 0) return std::nullopt;
  closure.Db /= closure.Degrees;
  closure.ApartS /= closure.Degrees;
  return closure;
}

}  // namespace

std::optional<Closure> ClosureOf(const DegreeTable& table) {
  const auto level = static_cast<float>(StrongestOf(table) * std::pow(10, -kCountsDownDb / 20));
  if (const auto closure = ClosureAbove(table, level)) return closure;
  return ClosureAbove(table, 0);
}

}  // namespace lobegraph
