#pragma once

#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include "bench/rotator/Motor.h"

namespace lobegraph {

/// How what is told of the antenna differs from where it is.
struct DaemonSettings {
  double ResolutionDeg = 1;
  double AnswersLateS = 0;
  double LostShare = 0;  ///< of the answers
  std::optional<double> JumpAtDeg = {};
  double JumpDeg = 40;
  std::uint64_t Seed = 1;
};

/// What a rotator's daemon answers to its clients' lines, as hamlib's rotctld does: p, P, M, S, K,
/// \dump_state, _ and their long names.
class Daemon {
 public:
  Daemon(Motor& motor, const MotorSettings& range, const DaemonSettings& settings)
      : motor_(motor), range_(range), settings_(settings), random_(settings.Seed) {}

  /// @return the answer with its line ends; none when there is none, or it is lost
  std::optional<std::string> Answer(std::string_view line, double nowS);
  /// The client said that it goes.
  static bool EndsWith(std::string_view line) { return line == "q" || line == "Q" || line == "\\quit"; }
  double AnswersLateS() const { return settings_.AnswersLateS; }

 private:
  std::string Obey(std::string_view line, double nowS);
  std::string Position(double nowS);
  std::string GoTo(std::string_view numbers, double nowS);
  std::string Move(std::string_view numbers, double nowS);
  std::string State() const;

  Motor& motor_;
  MotorSettings range_;
  DaemonSettings settings_;
  std::mt19937_64 random_;
};

}  // namespace lobegraph
