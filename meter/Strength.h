#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lobegraph {

/// S9 of a receiver below 30 MHz.
inline constexpr double kS9Dbm = -73;
/// What the strongest level of a turn is published as: near the top of the plot's 60 dB, with room above.
inline constexpr double kStrongestDbm = -5;

/// The signal strength, dB over S9, in a daemon's answer to "l STRENGTH"; none for an answer that is no
/// number ("RPRT -11") or one beyond all sense (more than 1000 dB away).
std::optional<double> ParseStrength(std::string_view answer);

/// What an S-meter reports and what is true, measured once with a step attenuator: S-meters are not linear.
class Calibration {
 public:
  /// Two numbers a line, reported and true dB; "#" begins a comment. No line: as reported.
  /// @throws std::runtime_error naming the line that is none, or two lines for one reported value
  static Calibration FromText(std::string_view text);

  /// Linear between the table's lines; beyond its ends the error of the last line holds.
  double TrueDb(double reportedDb) const;

 private:
  struct Row {
    double Reported;
    double True;
  };
  std::vector<Row> rows_;  ///< by what is reported
};

/// The text that is published for a true strength.
/// @param referenceDb true strength that is published as kStrongestDbm
std::string PublishedText(double trueDb, double referenceDb);

}  // namespace lobegraph
