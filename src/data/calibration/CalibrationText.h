#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/base/FileAccess.h"
#include "data/calibration/CalibrationTable.h"

namespace lobegraph {

/// What a calibration file holds besides its points.
struct CalibrationNotes {
  std::string Method;  ///< how the level was measured ("tone"); empty: not told
  std::string Taken;   ///< when, for people

  bool operator==(const CalibrationNotes&) const = default;
};

struct CalibrationFile {
  CalibrationOutcome Outcome;
  CalibrationNotes Notes;
};

/// Reads the text of a calibration file: two numbers a line, heard and true dB, blanks between them; "#"
/// begins a comment, and "# method: tone" is a note. Refused with the line: what is not two numbers, a number
/// beyond 1000 dB, more than 10,000 points, and what CalibrationOutcome::Of refuses.
CalibrationFile ReadCalibration(std::string_view text);

/// The same from a file; refused also when it cannot be read or is larger than a megabyte.
CalibrationFile LoadCalibration(FileAccess& files, const std::string& path);

/// The text of a file that ReadCalibration reads back.
std::string CalibrationText(const CalibrationTable& table, const CalibrationNotes& notes);

/// A number from end to end that is a sensible level; none otherwise.
std::optional<double> SensibleDb(std::string_view text);

}  // namespace lobegraph
