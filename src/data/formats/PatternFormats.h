#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/base/FileAccess.h"
#include "data/formats/LoadOutcome.h"
#include "data/record/ReadingsRecord.h"
#include "data/table/PatternTable.h"
#include "data/table/TextLines.h"

namespace lobegraph {

/// A format of pattern files: one row of the table. It is read as a record or as a table of directions, and
/// written from one of them; a format that is only read has no writer.
struct PatternFormat {
  std::string_view Id;       ///< names its fuzz target and the target's folder of inputs
  std::string_view Name;     ///< as a file dialog and the help text show it
  std::string_view Endings;  ///< with their points, blanks between them, the usual one first

  std::string_view EndingsOfAnyText = "";          ///< count only for a file that is recognised
  bool (*Recognises)(TextLines& lines) = nullptr;  ///< looks as far as it has to
  std::optional<bool> Columns = std::nullopt;      ///< counts only where LoadRules::Columns is the same

  LoadOutcome (*ReadRecord)(std::string_view bytes, const LoadRules& rules, ReadingsRecord& record) = nullptr;
  PatternTable (*ReadTable)(TextLines& lines) = nullptr;
  std::string (*WriteRecord)(const ReadingsRecord& record, std::string_view versionText) = nullptr;
  std::string (*WriteTable)(const PatternTable& table) = nullptr;

  std::string_view Lost = "";      ///< what of a record it has no room for
  bool LosesHalfTurn = false;      ///< read again, half a turn is spread over a whole one
  std::size_t MostReadings = 361;  ///< that it is read with
  std::string (*TextAs)(std::string_view text) = nullptr;  ///< how a line of words stands in it
  std::string_view Invented = "";                          ///< what stands there without having been measured
  bool AtWholeDegrees = false;                             ///< written as 360 azimuths

  bool Writes() const { return WriteRecord != nullptr || WriteTable != nullptr; }
};

/// Every format, the pattern file first.
std::span<const PatternFormat> PatternFormats();

/// By the ending of a name, in any letter case; where the ending is that of any text, by what stands in the
/// file. Anything unknown is taken for a pattern file.
/// @throws RunTimeError 53, 75, 76 for a file that has to be looked into and cannot be read
const PatternFormat& FormatToRead(FileAccess& files, const std::string& path, bool columns);

/// By the ending of a name; null when nothing is written under it.
const PatternFormat* FormatToWrite(std::string_view path, bool columns);

/// Every ending that is read, and the usual one of each format that is written: each once, in the table's
/// order.
std::vector<std::string_view> EndingsRead();
std::vector<std::string_view> EndingsWritten();

/// Reads a pattern file of any format. A record is read from a file of at most FileAccess::kLargestFile;
/// tables are read line by line, however large they are. Levels of foreign formats reach up to 1000.
/// @return the error of a file that could be opened: 13 for a text without a pattern (with an advice for the
/// input of a modelling program), or as ReadPatternText
/// @throws RunTimeError 53, 75, 76 for a file that cannot be read
LoadOutcome ReadPattern(FileAccess& files, const std::string& path, const LoadRules& rules,
                        ReadingsRecord& record);

}  // namespace lobegraph
