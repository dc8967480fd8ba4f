#include "processing/bearing/BearingTrack.h"

#include <algorithm>
#include <cmath>

#include "processing/bearing/Angles.h"

namespace lobegraph {
namespace {

constexpr double kSameDeg = 0.005;    ///< less is the same value
constexpr double kLargeChange = 1.5;  ///< in steps: a change that passed over whole cells
constexpr int kChangesToKnowSpeed = 5;
// A knot is straightened by those within a second on either side of it, and by two that are not much farther.
constexpr double kBesideS = 1, kFarthestBesideS = 2;
constexpr std::size_t kFewestBeside = 2, kMostBeside = 12;
constexpr double kLongestStepS = 2;  ///< between two changes; beyond it the antenna stood

}  // namespace

void BearingTrack::Add(double timeS, double toldDeg) {
  if (Empty()) {
    AddKnot(timeS, toldDeg);
    lastS_ = runFromS_ = timeS;
    lastDeg_ = toldDeg;
    return;
  }
  if (timeS <= lastS_) return;
  const double deg = InTurnNearest(toldDeg, lastDeg_), way = deg - lastDeg_, seconds = timeS - lastS_;
  const bool known = seconds <= kBreakS && !Jumps(seconds, way);
  if (!known) {
    if (lastS_ > LastKnotS()) AddKnot(lastS_, lastDeg_);
    AddKnot(timeS, deg, false);
    runFromS_ = timeS;
    enteredBy_ = 0;
    anchored_ = true;
  } else if (std::abs(way) > kSameDeg) {
    NoteSpeed(seconds, way);
    AddChange(timeS, deg);
  } else if (!anchored_ && std::abs(enteredBy_) > kLargeChange * stepDeg_) {
    // It had come from far and now stands: it was here when this was first told.
    AddKnot(runFromS_, deg);
    anchored_ = true;
  }
  lastS_ = timeS;
  lastDeg_ = known && std::abs(way) <= kSameDeg ? lastDeg_ : deg;
}

void BearingTrack::AddKnot(double timeS, double deg, bool known) {
  knots_.push_back({timeS, deg, known, deg});
  while (settled_ < knots_.size() && NeighboursAreThere(settled_)) Straighten(settled_++);
}

bool BearingTrack::NeighboursAreThere(std::size_t knot) const {
  const std::size_t after = knots_.size() - 1 - knot;
  const double reachS = after >= kFewestBeside ? kBesideS : kFarthestBesideS;
  return after >= kMostBeside || LastKnotS() - knots_[knot].TimeS > reachS || !knots_.back().Known;
}

/// How many knots on either side a knot is straightened by: as many on both, none across what is not known.
std::size_t BearingTrack::CountBeside(std::size_t knot) const {
  std::size_t count = 0;
  while (count < kMostBeside && knot > count && knot + count + 1 < knots_.size()) {
    const Knot &before = knots_[knot - count - 1], &after = knots_[knot + count + 1];
    const double farther = std::max(knots_[knot].TimeS - before.TimeS, after.TimeS - knots_[knot].TimeS);
    const bool near = farther <= (count < kFewestBeside ? kFarthestBesideS : kBesideS);
    if (!knots_[knot - count].Known || !after.Known || !near) break;
    ++count;
  }
  return count;
}

/// Onto the line through its neighbours by least squares: neither the step nor the moment of the question is
/// in it then. Never by more than half a step, so that runs up and stops stay what they are.
void BearingTrack::Straighten(std::size_t knot) {
  const std::size_t beside = CountBeside(knot);
  if (beside < kFewestBeside) return;
  double count = 0, times = 0, squares = 0, degs = 0, products = 0;
  for (std::size_t i = knot - beside; i <= knot + beside; ++i) {
    const double time = knots_[i].TimeS - knots_[knot].TimeS, deg = knots_[i].ChangeDeg;
    count += 1, times += time, squares += time * time, degs += deg, products += time * deg;
  }
  const double deg = (degs * squares - times * products) / (count * squares - times * times);
  const double told = knots_[knot].ChangeDeg;
  knots_[knot].Deg = std::clamp(deg, told - stepDeg_ / 2, told + stepDeg_ / 2);
}

void BearingTrack::AddChange(double timeS, double deg) {
  const double way = deg - lastDeg_;
  const bool stood = lastS_ > runFromS_;
  const bool far = std::abs(way) > kLargeChange * stepDeg_;
  if (stood && far && lastS_ > LastKnotS()) AddKnot(lastS_, lastDeg_);
  AddKnot((lastS_ + timeS) / 2, (lastDeg_ + deg) / 2);
  runFromS_ = timeS;
  enteredBy_ = way;
  anchored_ = false;
}

void BearingTrack::NoteSpeed(double seconds, double way) {
  const double change = std::abs(way);
  stepDeg_ = stepDeg_ == 0 ? change : std::min(stepDeg_, change);
  // From the first change on, the time since the last one counts: a coarse step is no speed.
  if (changes_ > 0) {
    movingS_ += std::min(seconds + (lastS_ - runFromS_), kLongestStepS);
    movedDeg_ += change;
  }
  ++changes_;
}

bool BearingTrack::Jumps(double seconds, double way) const {
  const double least = std::max(kLeastJumpDeg, 2 * stepDeg_);
  if (std::abs(way) <= least) return false;
  if (changes_ < kChangesToKnowSpeed) return std::abs(way) > kFastestDegPerS * seconds + least;
  return std::abs(way) > kJumpTimes * movedDeg_ / movingS_ * seconds + least;
}

std::optional<double> BearingTrack::At(double timeS) const {
  if (Empty() || timeS < knots_.front().TimeS || timeS > lastS_) return std::nullopt;
  const auto after = std::lower_bound(knots_.begin(), knots_.end(), timeS,
                                      [](const Knot& knot, double time) { return knot.TimeS < time; });
  if (after == knots_.begin()) return after->Deg;
  const Knot& before = *(after - 1);
  const Knot end = after == knots_.end() ? Knot{lastS_, lastDeg_, true, lastDeg_} : *after;
  if (!end.Known) return std::nullopt;
  const double share = (timeS - before.TimeS) / (end.TimeS - before.TimeS);
  return before.Deg + share * (end.Deg - before.Deg);
}

std::vector<BearingTrack::Piece> BearingTrack::Pieces() const {
  std::vector<Piece> pieces;
  for (std::size_t i = 1; i < knots_.size(); ++i) {
    const Knot &from = knots_[i - 1], &to = knots_[i];
    pieces.push_back({from.TimeS, to.TimeS, from.Deg, to.Deg, to.Known});
  }
  if (!Empty() && lastS_ > LastKnotS())
    pieces.push_back({LastKnotS(), lastS_, knots_.back().Deg, lastDeg_, true});
  return pieces;
}

}  // namespace lobegraph
