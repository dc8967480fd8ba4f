#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/record/ReadingsRecord.h"

namespace lobegraph {

/// A direction and its level, as other programs keep them.
struct TablePoint {
  double AngleDeg = 0.0;  ///< clockwise from the top of the plot
  double LevelDb = 0.0;   ///< relative to anything
  double Count = 1.0;     ///< how many directions it is the mean of
};

/// A plotted reading as it was collected.
struct LevelRow {
  int Index = 0;          ///< in the record
  double AngleDeg = 0.0;  ///< on the plot, clockwise from its top
  float Level = 0.F;
  double Db = 0.0;  ///< relative to the strongest
};

/// A pattern on its way from or to a foreign format, with the words that some formats have room for.
struct PatternTable {
  std::vector<TablePoint> Points = {};  ///< in any order, at any step
  std::vector<LevelRow> Rows = {};      ///< the readings behind the points, when it comes from a record
  std::string Name = {};
  std::string CollectedBy = {};
  std::string CollectedDate = {};
  std::optional<bool> Horizontal = std::nullopt;  ///< polarization
  std::optional<double> FrequencyMHz = std::nullopt;
  std::optional<double> GainDbi = std::nullopt;
  std::optional<double> BeamwidthDeg = std::nullopt;
  std::optional<double> FrontToBackDb = std::nullopt;
};

/// The weakest level that is told apart from nothing, dB below the strongest.
inline constexpr double kFaintestDb = -100.0;

/// Adds a direction to those of a cut. A million different ones are kept; where there are many of one angle,
/// their mean.
/// @throws RunTimeError 13 (Type mismatch) beyond a million different angles, and for numbers that are no
/// angle or no level (above 1E15)
void AddPoint(std::vector<TablePoint>& points, const TablePoint& point);

/// @throws RunTimeError 13 (Type mismatch) for a table without a single point
void RequirePoints(const PatternTable& table);

/// Levels at 0, 1, ... 359 degrees, dB relative to the strongest (at most 0, at least kFaintestDb): straight
/// lines in dB between the points, which lie on a circle; points at the same angle count with their mean.
/// @throws RunTimeError 13 (Type mismatch) without a single point
std::array<double, 360> WholeDegrees(const PatternTable& table);

/// Takes a table up as a record: peak level 1000, the words it has. Evenly spaced points of a whole turn (60
/// to 360 of them) become the readings themselves and the first angle the rotation; points of half a turn
/// become a 180-degree set; any others are read off at whole degrees.
/// @throws RunTimeError 13 without a single point
void TakeUpTable(const PatternTable& table, ReadingsRecord& record);

/// Words of a line between the separators, none of them empty.
std::vector<std::string_view> WordsOf(std::string_view line, std::string_view separators = " \t");
/// The value of a text that is a number from end to end, a decimal point or a decimal comma in it.
std::optional<double> NumberIn(std::string_view text);
std::string_view Trimmed(std::string_view text);

}  // namespace lobegraph
