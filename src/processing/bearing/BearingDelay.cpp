#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <vector>

#include "processing/bearing/BearingFigures.h"

namespace lobegraph {
namespace {

constexpr double kPeakDownDb = 3;  ///< the part of the beam that is looked at
constexpr double kMostDelayS = 5;
constexpr std::size_t kLeastPoints = 5;

using Pass = std::map<double, const DegreeVisit*>;  ///< by bearing, counted on over north

double DbOf(const DegreeVisit& visit) { return 20 * std::log10(visit.Sum / visit.Count); }

struct Peak {
  double Deg = 0;
  double DegPerS = 0;  ///< how fast, and which way, it was passed
};

/// Vertex of the parabola through points by least squares; none for one that does not open downwards.
std::optional<double> Vertex(const std::vector<std::array<double, 2>>& points, double centre) {
  double s1 = 0, s2 = 0, s3 = 0, s4 = 0, y0 = 0, y1 = 0, y2 = 0;
  const auto n = static_cast<double>(points.size());
  for (const auto& [deg, db] : points) {
    const double x = deg - centre;
    s1 += x, s2 += x * x, s3 += x * x * x, s4 += x * x * x * x;
    y0 += db, y1 += x * db, y2 += x * x * db;
  }
  const double determinant = n * (s2 * s4 - s3 * s3) - s1 * (s1 * s4 - s2 * s3) + s2 * (s1 * s3 - s2 * s2);
  const double b = n * (y1 * s4 - s3 * y2) - y0 * (s1 * s4 - s2 * s3) + s2 * (s1 * y2 - y1 * s2);
  const double a = n * (s2 * y2 - y1 * s3) - s1 * (s1 * y2 - y1 * s2) + y0 * (s1 * s3 - s2 * s2);
  if (determinant == 0 || a / determinant >= 0) return std::nullopt;
  return centre - b / (2 * a);
}

/// The beam's peak in one pass; none when the beam is not wholly within it.
std::optional<Peak> PeakOf(const Pass& pass) {
  const auto top = std::max_element(pass.begin(), pass.end(), [](const auto& a, const auto& b) {
    return a.second->Level() < b.second->Level();
  });
  if (top == pass.end()) return std::nullopt;
  const auto within = [&](Pass::const_iterator at) {
    return at->second->Sum > 0 && DbOf(*at->second) > DbOf(*top->second) - kPeakDownDb;
  };
  auto first = top, last = top;
  while (first != pass.begin() && within(std::prev(first))) --first;
  while (std::next(last) != pass.end() && within(std::next(last))) ++last;
  if (first == pass.begin() || std::next(last) == pass.end()) return std::nullopt;
  std::vector<std::array<double, 2>> points;
  for (auto at = first; at != std::next(last); ++at) points.push_back({at->first, DbOf(*at->second)});
  if (points.size() < kLeastPoints) return std::nullopt;
  const auto vertex = Vertex(points, top->first);
  const double seconds = last->second->TimeS() - first->second->TimeS();
  if (!vertex || seconds == 0) return std::nullopt;
  return Peak{*vertex, (last->first - first->first) / seconds};
}

}  // namespace

std::optional<MeasuredDelay> DelayOf(const BearingTake& take) {
  DegreeTable table(0);
  for (const LevelBucket& bucket : take.Heard)
    if (const auto heading = take.Track.At(bucket.TimeS)) table.Add(bucket, *heading);
  std::map<int, Pass> passes;
  for (int degree = 0; degree < kDegrees; ++degree)
    for (const DegreeVisit& visit : table.At(degree)) passes[visit.Pass][visit.HeadingDeg()] = &visit;
  for (auto pass = passes.begin(); pass != passes.end() && std::next(pass) != passes.end(); ++pass) {
    const auto forth = PeakOf(pass->second), back = PeakOf(std::next(pass)->second);
    if (!forth || !back || forth->DegPerS * back->DegPerS >= 0) continue;
    // Each peak is shifted by its own speed times the delay.
    const double seconds = (forth->Deg - back->Deg) / (forth->DegPerS - back->DegPerS);
    if (std::abs(seconds) <= kMostDelayS) return MeasuredDelay{seconds, forth->Deg, back->Deg};
  }
  return std::nullopt;
}

}  // namespace lobegraph
