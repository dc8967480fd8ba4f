#pragma once

#include <optional>
#include <string>

#include "meter/RadioMeter.h"

namespace lobegraph {

/// Either options, or a text to show and the code to end with.
struct ParsedMeterCommandLine {
  std::optional<MeterOptions> Options;
  int ExitCode = 0;
  std::string Output;
  std::string Complaint;
};
ParsedMeterCommandLine ParseMeterCommandLine(int argc, const char* const* argv);

}  // namespace lobegraph
