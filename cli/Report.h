#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "cli/OpenPattern.h"

namespace lobegraph {

/// What a report says beyond the usual.
struct ReportExtras {
  bool Readings = false;  ///< all 361 readings
  bool Trace = false;     ///< the plotted points
};

/// One pattern as an object; its keys are an interface that scripts rely on (see lobegraph-cli(1)).
nlohmann::ordered_json ReportObject(const OpenedPattern& pattern, const std::string& file,
                                    const ReportExtras& extras);

/// The object on one line, line end included. File names that are no valid text get replacement characters.
std::string ReportLine(const OpenedPattern& pattern, const std::string& file, const ReportExtras& extras);

}  // namespace lobegraph
