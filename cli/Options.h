#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/OpenPattern.h"
#include "cli/Report.h"

namespace lobegraph {

struct ReportRequest {
  std::vector<std::string> Files = {};
  bool Json = false;
  bool Repeat = false;  ///< the files are turns of one antenna, to be laid on each other
  bool Turn = false;    ///< what the logs beside the files say
  ReportExtras Extras = {};
  PatternOptions Pattern = {};
  unsigned Jobs = 0;  ///< files at the same time; 0: one for each core
};

struct RenderRequest {
  std::vector<std::string> Files = {};
  std::string Out = {};  ///< "{}" in it stands for the name of each file without folder and ending
  std::vector<std::string> Overlays = {};
  std::string ColoursFile = {};
  std::string Title = {};
  int Width = 0;  ///< pixels; 0: one for each unit
  int Height = 0;
  PatternOptions Pattern = {};
};

struct ConvertRequest {
  std::string In = {};
  std::string Out = {};
  bool Table = false;  ///< CSV with several columns
};

/// "Device PATH is to be COM number N."
struct PortAssignment {
  int Number = 0;  ///< 1 to 32
  std::string Path = {};
};

struct PortsRequest {
  std::optional<PortAssignment> Assignment = {};  ///< none: list
};

/// What the command line asks for: one request, or a text to show and the code to end with (help, version, or
/// a complaint about the command line).
struct CommandLine {
  std::optional<ReportRequest> Report;
  std::optional<RenderRequest> Render;
  std::optional<ConvertRequest> Convert;
  std::optional<PortsRequest> Ports;
  int ExitCode = 0;  ///< 0, or 2 for wrong use
  std::string Output = {};
  std::string Complaint = {};
};
CommandLine ParseCommandLine(int argc, const char* const* argv, const std::string& version);

}  // namespace lobegraph
