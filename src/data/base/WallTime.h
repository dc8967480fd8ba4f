#pragma once

#include <cstdint>
#include <string>

namespace lobegraph {

/// Milliseconds since 1970-01-01 00:00 UTC, as the computer's date says now.
std::int64_t WallTimeMs();

/// Such a moment in local time by ISO 8601, with milliseconds and offset: "2026-11-21T10:22:33.045+01:00".
std::string IsoTime(std::int64_t wallTimeMs);

/// The same without what a file's name cannot bear, sorting by time: "2026-11-21 10.22.33".
std::string TimeForFileName(std::int64_t wallTimeMs);

}  // namespace lobegraph
