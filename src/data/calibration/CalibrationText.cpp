#include "data/calibration/CalibrationText.h"

#include <cmath>
#include <sstream>
#include <utility>
#include <vector>

#include "data/base/Numbers.h"
#include "data/base/RunTimeError.h"

namespace lobegraph {
namespace {

constexpr double kLargestDb = 1000.0;
constexpr std::size_t kMostPoints = 10'000;
constexpr std::string_view kMethod = "method:";
constexpr std::string_view kTaken = "taken:";

std::string Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(" \t\r") - first + 1));
}

void TakeNote(std::string_view comment, CalibrationNotes& notes) {
  const std::string note = Trimmed(comment);
  if (note.starts_with(kMethod)) notes.Method = Trimmed(std::string_view(note).substr(kMethod.size()));
  if (note.starts_with(kTaken)) notes.Taken = Trimmed(std::string_view(note).substr(kTaken.size()));
}

/// A note is one line, whatever was given.
std::string OneLine(std::string text) {
  for (char& character : text)
    if (character == '\n' || character == '\r') character = ' ';
  return text;
}

enum class Line { Empty, Point, Wrong };

Line TakeLine(std::string_view line, std::vector<CalibrationPoint>& points) {
  std::istringstream words{std::string(line)};
  std::string heard;
  std::string trueText;
  std::string more;
  if (!(words >> heard)) return Line::Empty;
  words >> trueText;
  const auto heardDb = SensibleDb(heard);
  const auto trueDb = SensibleDb(trueText);
  if (!heardDb || !trueDb || words >> more) return Line::Wrong;
  points.push_back({*heardDb, *trueDb});
  return Line::Point;
}

CalibrationOutcome Refused(std::string why) { return {std::nullopt, std::move(why)}; }

}  // namespace

std::optional<double> SensibleDb(std::string_view text) {
  try {
    const double value = WholeNumberText(text);
    if (std::abs(value) <= kLargestDb) return value;
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
  return std::nullopt;
}

CalibrationFile ReadCalibration(std::string_view text) {
  CalibrationFile file;
  std::vector<CalibrationPoint> points;
  int number = 0;
  while (!text.empty()) {
    ++number;
    const auto end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    const auto comment = line.find('#');
    if (comment != std::string_view::npos) TakeNote(line.substr(comment + 1), file.Notes);
    if (TakeLine(line.substr(0, comment), points) == Line::Wrong) {
      file.Outcome = Refused("line " + std::to_string(number) + " of the calibration is not two numbers");
      return file;
    }
    if (points.size() > kMostPoints) {
      file.Outcome = Refused("the calibration has more than 10000 points");
      return file;
    }
  }
  file.Outcome = CalibrationOutcome::Of(std::move(points));
  return file;
}

CalibrationFile LoadCalibration(FileAccess& files, const std::string& path) {
  CalibrationFile file;
  try {
    const std::string text = files.Read(path);
    if (text.size() < FileAccess::kLargestFile) return ReadCalibration(text);
    file.Outcome = Refused("the calibration is larger than a megabyte");
  } catch (const RunTimeError& error) {
    file.Outcome = Refused("the calibration cannot be read (" + error.Description() + ")");
  }
  return file;
}

std::string CalibrationText(const CalibrationTable& table, const CalibrationNotes& notes) {
  std::string text = "# heard dB, true dB\n";
  if (!notes.Method.empty()) text += "# method: " + OneLine(notes.Method) + "\n";
  if (!notes.Taken.empty()) text += "# taken: " + OneLine(notes.Taken) + "\n";
  for (const CalibrationPoint& point : table.Points())
    text += FixedText(point.HeardDb, 3) + " " + FixedText(point.TrueDb, 3) + "\n";
  return text;
}

}  // namespace lobegraph
