#pragma once

#include <ostream>
#include <string>

#include "data/base/FileAccess.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {

/// Where a verb reads and writes; replaced in tests.
struct CommandParts {
  FileAccess& Files;
  std::ostream& Output;
  std::ostream& Complaints;
  bool OnTerminal = false;  ///< Complaints is a terminal: a progress bar may be shown
};

inline constexpr int kAllDone = 0;
inline constexpr int kSomeFailed = 1;
inline constexpr int kWrongUse = 2;

/// "lobegraph-cli: beam.lbg: Error 53 (File not found)", one line.
std::string ComplaintAbout(const std::string& file, const std::string& reason);
std::string ComplaintAbout(const std::string& file, const RunTimeError& error);

}  // namespace lobegraph
