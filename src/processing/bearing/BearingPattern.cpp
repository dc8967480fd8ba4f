#include "processing/bearing/BearingPattern.h"

#include <algorithm>
#include <cmath>

namespace lobegraph {
namespace {

using From = DegreeReading::From;

constexpr float kSilence = 1;  ///< the lowest level a source delivers; below it there is no dB

DegreeReading Measured(const DegreeVisit& visit) {
  DegreeReading reading;
  reading.Is = From::Samples;
  reading.Level = visit.Level();
  reading.Lowest = visit.Lowest;
  reading.Highest = visit.Highest;
  reading.HeadingDeg = WithinTurn(visit.HeadingDeg());
  reading.TimeS = visit.TimeS();
  return reading;
}

/// Linear in dB. @param share 0 at the first, 1 at the second
float Between(float first, float second, double share) {
  if (first < kSilence && second < kSilence) return 0;
  const double from = std::log(std::max(first, kSilence)), to = std::log(std::max(second, kSilence));
  return static_cast<float>(std::exp(from + share * (to - from)));
}

void Fill(BearingPattern& pattern, const DegreeArc& arc) {
  const float before = pattern.At((arc.First + kDegrees - 1) % kDegrees).Level;
  const float after = pattern.At((arc.Last() + 1) % kDegrees).Level;
  for (int i = 0; i < arc.Count; ++i) {
    DegreeReading& reading = pattern.At((arc.First + i) % kDegrees);
    reading.Is = From::Neighbours;
    reading.Level = reading.Lowest = reading.Highest =
        Between(before, after, static_cast<double>(i + 1) / (arc.Count + 1));
  }
}

/// Filled where the antenna passed, and where so few are missing that the neighbours tell enough.
void FillGap(BearingPattern& pattern, const DegreeArc& gap, const PassedDegrees& passed) {
  if (gap.Count <= BearingPattern::kMostFilledQuietly) return Fill(pattern, gap);
  const auto isPassed = [&](int i) { return passed.Passed((gap.First + i) % kDegrees); };
  for (int i = 0; i < gap.Count; ++i)
    if (!isPassed(i)) return;
  Fill(pattern, gap);
}

void SetUnvisited(BearingPattern& pattern) {
  float lowest = 0;
  bool any = false;
  for (const DegreeReading& reading : pattern.Degrees) {
    if (reading.Is != From::Samples) continue;
    lowest = any ? std::min(lowest, reading.Level) : reading.Level;
    any = true;
  }
  for (DegreeReading& reading : pattern.Degrees)
    if (reading.Is == From::NeverVisited) reading.Level = reading.Lowest = reading.Highest = lowest;
}

}  // namespace

int BearingPattern::CountOf(From from) const {
  return static_cast<int>(std::count_if(Degrees.begin(), Degrees.end(),
                                        [&](const DegreeReading& reading) { return reading.Is == from; }));
}

std::vector<DegreeArc> BearingPattern::Arcs(From from) const {
  std::vector<DegreeArc> arcs;
  const auto is = [&](int degree) { return At((degree + kDegrees) % kDegrees).Is == from; };
  for (int degree = 0; degree < kDegrees; ++degree) {
    if (!is(degree) || is(degree - 1)) continue;
    DegreeArc arc{degree, 1};
    while (is((degree + arc.Count) % kDegrees)) ++arc.Count;
    arcs.push_back(arc);
  }
  if (arcs.empty() && is(0)) arcs.push_back({0, kDegrees});
  return arcs;
}

void PassedDegrees::Pass(double fromDeg, double toDeg) {
  const double low = std::floor(std::min(fromDeg, toDeg) + 0.5), high = std::max(fromDeg, toDeg) + 0.5;
  int marked = 0;
  for (double deg = low; deg < high && marked < kDegrees; deg += 1, ++marked)
    passed_[static_cast<std::size_t>(DegreeOf(deg))] = true;
}

BearingPattern PatternOf(const DegreeTable& table, const PassedDegrees& passed, bool signalKnown) {
  BearingPattern pattern;
  pattern.SignalDeg = table.SignalDeg();
  pattern.SignalKnown = signalKnown;
  for (int degree = 0; degree < kDegrees; ++degree) {
    const auto& visits = table.At(degree);
    if (!visits.empty()) pattern.At(degree) = Measured(visits.front());
    if (visits.empty()) pattern.At(degree).HeadingDeg = WithinTurn(table.SignalDeg() - degree);
  }
  if (pattern.CountOf(From::Samples) == 0) return pattern;
  for (const DegreeArc& gap : pattern.Arcs(From::NeverVisited)) FillGap(pattern, gap, passed);
  SetUnvisited(pattern);
  return pattern;
}

PassedDegrees PassedOn(const BearingTrack& track, double signalDeg) {
  PassedDegrees passed;
  for (const BearingTrack::Piece& piece : track.Pieces())
    passed.Pass(signalDeg - piece.FromDeg, signalDeg - piece.ToDeg);
  return passed;
}

}  // namespace lobegraph
