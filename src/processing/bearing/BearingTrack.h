#pragma once

#include <optional>
#include <vector>

namespace lobegraph {

/// Where the antenna pointed over time, from positions told in steps. Bearings run on over north: what is
/// told as 359, 0, 1 is 359, 360, 361 here, and 450, 90 stays where it is. Times are seconds and go forward.
///
/// A told value stands for a cell as wide as its step; the moment at which it changes is when the antenna
/// passed from one cell to the next. So the track runs through the middles of the changes, straightened over
/// two seconds by at most half a step. Its error is about half a step or half of what is turned between two
/// questions, whichever is less.
class BearingTrack {
 public:
  static constexpr double kBreakS = 3;  ///< positions farther apart tell nothing of what lies between
  static constexpr double kLeastJumpDeg = 10;
  static constexpr double kJumpTimes = 4;        ///< that much faster than usual, no mast has turned
  static constexpr double kFastestDegPerS = 60;  ///< while the usual speed is not known

  /// A piece of the way, between two moments.
  struct Piece {
    double FromS, ToS;
    double FromDeg, ToDeg;
    bool Known;  ///< false across a break or a jump: it was passed, but nobody knows when
  };

  void Add(double timeS, double toldDeg);

  bool Empty() const { return knots_.empty(); }
  /// None before the first position, after the last one, and where a piece is not known.
  std::optional<double> At(double timeS) const;
  /// At gives the same for earlier moments whatever is told later.
  double SettledS() const { return settled_ == 0 ? 0 : knots_[settled_ - 1].TimeS; }
  double FirstS() const { return Empty() ? 0 : knots_.front().TimeS; }
  double LastS() const { return lastS_; }
  /// The last position told, counted on over north.
  double LastDeg() const { return lastDeg_; }
  /// The way from the first position to the last.
  std::vector<Piece> Pieces() const;
  /// The smallest change told so far: the resolution of the rotator; 0 before the first.
  double StepDeg() const { return stepDeg_; }

 private:
  struct Knot {
    double TimeS;
    double Deg;
    bool Known;        ///< the piece that ends here
    double ChangeDeg;  ///< before it was straightened
  };

  bool Jumps(double seconds, double way) const;
  void AddKnot(double timeS, double deg, bool known = true);
  bool NeighboursAreThere(std::size_t knot) const;
  std::size_t CountBeside(std::size_t knot) const;
  void Straighten(std::size_t knot);
  double LastKnotS() const { return knots_.back().TimeS; }
  void AddChange(double timeS, double deg);
  void NoteSpeed(double seconds, double way);

  std::vector<Knot> knots_;
  std::size_t settled_ = 0;  ///< knots that will not change any more
  double lastS_ = 0;
  double lastDeg_ = 0;
  double runFromS_ = 0;    ///< since when the last value is told
  double enteredBy_ = 0;   ///< the change that led to it
  bool anchored_ = false;  ///< the present run has a knot of its own
  double stepDeg_ = 0;
  double movingS_ = 0, movedDeg_ = 0;
  int changes_ = 0;
};

}  // namespace lobegraph
