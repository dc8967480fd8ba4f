#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "data/record/ReadingsRecord.h"
#include "processing/PlotResult.h"

namespace lobegraph {

/// Rotation and trims as they were typed, before any check; see TypedNumber.
struct Placement {
  double Rotate = 0.0;     ///< degrees
  double TrimFront = 0.0;  ///< readings
  double TrimEnd = 0.0;
};

/// The placement that a record has, in the seven digits in which it is shown.
Placement PlacementOf(const ReadingsRecord& record);

/// Whether a set can be plotted.
struct RangeCheck {
  bool Passed = false;
  std::optional<std::string> Message;    ///< none for a single reading, which is refused silently
  std::optional<PlacementPart> Refused;  ///< the value refused; it is 0 in the record now
};

inline constexpr const char* kTooManyReadings = "LBG010 More than 360 readings to plot";
inline constexpr const char* kTooFewReadings = "LBG011 Less than 60 readings - plot aborted";

/// How many readings stay between the trims. @throws RunTimeError 6 beyond 16 bits.
std::int16_t PlottedCount(const ReadingsRecord& record);

/// The refusal of a count above 360 or of 2 to 59, or none.
/// @param anyLength a short set is accepted (calibrating)
std::optional<std::string> CountRefusal(std::int16_t count, bool anyLength);

/// Takes rotation and trims into the record and checks them, the count last.
/// Deliberate: rotation 0 is accepted although its message names 1 as the lower bound.
/// @param anyLength as CountRefusal @throws RunTimeError 6 for a number that does not fit the record.
RangeCheck CheckRange(ReadingsRecord& record, const Placement& placement, bool anyLength);

/// Degrees between two plotted readings; half for a 180-degree set.
float DegreesBetween(std::int16_t readingsPlotted, bool plot180);

/// The rotation that a record has once it is plotted: a 180-degree set always lies across the top (270), and
/// keeps 0 in the rectangular drawing.
float RotationFor(const ReadingsRecord& record, bool rectangular);

/// A rotation as the whole number that is shown of it; 360 is 0.
float WholeRotation(float degrees);

}  // namespace lobegraph
