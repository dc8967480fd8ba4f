#pragma once

#include <optional>
#include <string>
#include <vector>

namespace lobegraph {

/// What a receiver or a radio says of a signal whose strength is known. Both in dB; only differences count.
struct CalibrationPoint {
  double HeardDb = 0.0;
  double TrueDb = 0.0;

  bool operator==(const CalibrationPoint&) const = default;
};

/// A smooth curve through measured points that rises wherever they rise: the true level of one that is heard.
/// Without points nothing is changed.
class CalibrationTable {
 public:
  CalibrationTable() = default;

  bool Empty() const { return points_.empty(); }
  /// Rising in both.
  const std::vector<CalibrationPoint>& Points() const { return points_; }

  /// Through the points piecewise cubic and monotone; beyond the ends the error of the last point holds.
  /// Source: F. N. Fritsch and R. E. Carlson, "Monotone piecewise cubic interpolation", SIAM J. Numer. Anal.
  /// 17, 1980, with the slopes of F. N. Fritsch and J. Butland, 1984.
  double TrueDb(double heardDb) const;

 private:
  friend struct CalibrationOutcome;
  explicit CalibrationTable(std::vector<CalibrationPoint> points);

  std::vector<CalibrationPoint> points_;
  std::vector<double> slopes_;  ///< of the curve at each point
};

/// A table, or why points make none.
struct CalibrationOutcome {
  std::optional<CalibrationTable> Table;
  std::string Refusal;  ///< a sentence for people; empty with a table

  /// @param points in any order. Refused: a level heard twice, and a louder one that stands for a weaker
  /// signal.
  static CalibrationOutcome Of(std::vector<CalibrationPoint> points);
};

}  // namespace lobegraph
