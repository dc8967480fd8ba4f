#pragma once

#include <optional>
#include <string>

#include "bench/Meter.h"
#include "bench/Turn.h"
#include "bench/receiver/ReceiverSettings.h"
#include "bench/rotator/RotatorOptions.h"

namespace lobegraph {

/// What the command line asks for.
struct BenchOptions {
  TurnSettings Turn;
  std::string Antenna = "beam";
  std::string File;  ///< a pattern file instead of the antenna; empty for none
  std::string Sink;  ///< empty: the server's default sink
  BenchKind Kind = BenchKind::Sound;
  std::optional<int> Com;  ///< COM number that a serial meter's terminal gets in the settings store
  RotatorOptions Rotator;
  std::string PulsesTo;  ///< where trigger pulses go; empty for none
  ReceiverSettings Receiver;
  bool List = false;
  bool Plain = false;
};

/// Either options, or a text to show and the code to end with (help, or a complaint about the command line).
struct ParsedCommandLine {
  std::optional<BenchOptions> Options;
  int ExitCode = 0;
  std::string Output;
  std::string Complaint;
};
ParsedCommandLine ParseCommandLine(int argc, const char* const* argv);

/// The antennas and their true beamwidth. Plain: "beam<tab>63.42", one a line, for scripts.
std::string ListText(bool plain);

/// "turn 2  bearing 123.4  level 512.3" (with a rotator "signal at 123.4 from the antenna  level 512.3"), or
/// what is left of the silence before.
std::string ProgressText(const Turn& turn, double seconds);

}  // namespace lobegraph
